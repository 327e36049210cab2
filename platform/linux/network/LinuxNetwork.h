#pragma once

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <curl/curl.h>

#include "platform/linux/network/NetworkSettings.h"
#include "platform/Network.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The network by libcurl. One thread, started with the first request, serves all of them and
/// calls their completions. Proxies are those of the environment (`https_proxy`, `no_proxy` and the
/// like, see curl(1)).
class LinuxNetwork : public Network {
 public:
  LinuxNetwork() : LinuxNetwork(NetworkSettings{}) {}
  explicit LinuxNetwork(NetworkSettings settings);
  /// Ends what is under way. Waits for a completion that runs, and for nothing else; so it is not
  /// called by one.
  ~LinuxNetwork() override;
  LinuxNetwork(const LinuxNetwork&) = delete;
  LinuxNetwork& operator=(const LinuxNetwork&) = delete;

  void get(const std::string& url, Completion completion) override;

 private:
  struct Request {
    std::string url;
    Completion completion;
  };
  class Transfers;

  void startThread() TALMO_REQUIRES(mutex_);
  void run(CURLM* multi);
  bool isStopped();
  std::vector<Request> takeRequests();

  const NetworkSettings settings_;
  Mutex mutex_;
  std::unique_ptr<CURLM, decltype(&curl_multi_cleanup)> multi_ TALMO_GUARDED_BY(mutex_){
      nullptr, &curl_multi_cleanup};
  std::thread thread_ TALMO_GUARDED_BY(mutex_);
  bool isStopped_ TALMO_GUARDED_BY(mutex_) = false;
  std::vector<Request> requests_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
