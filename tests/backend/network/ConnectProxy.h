#pragma once

#include <string>
#include <thread>
#include <vector>

#include "platform/linux/FileDescriptor.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/backend/network/Listener.h"

namespace talmo::test {

/// An HTTP proxy that connects to ports on the loopback interface, one connection at a time.
class ConnectProxy {
 public:
  /// Whether it lets its clients through. A proxy that does not answers 403.
  explicit ConnectProxy(bool isOpen = true);
  ~ConnectProxy();
  ConnectProxy(const ConnectProxy&) = delete;
  ConnectProxy& operator=(const ConnectProxy&) = delete;

  std::string url() const { return "http://127.0.0.1:" + std::to_string(listener_.port()); }

  /// What it was asked to connect to, as "host:port", in order.
  std::vector<std::string> targets() const;

 private:
  void run();
  void serve(int client);
  void relay(int client, int server);
  bool waitFor(int first, int second);

  const bool isOpen_;
  const Listener listener_;
  FileDescriptor end_;
  mutable Mutex mutex_;
  std::vector<std::string> targets_ TALMO_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace talmo::test
