#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/linux/browsers/DebuggingAddress.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo::test {

/// A debugging socket without a browser: it takes one connection at a time and answers as the test
/// says, on a thread of its own.
class FakeBrowser {
 public:
  enum class Handshake {
    /// As browsers do: whoever names the path gets in, anybody else is told that it is not there.
    accepts,
    /// Takes the connection and says nothing.
    hangs,
    /// Is some other program.
    talksNonsense,
  };

  struct Reply {
    /// Sent one after the other, each as a message.
    std::vector<std::string> texts;
    /// Bytes that follow as they are, past all framing.
    std::string bytes;
    /// Whether the connection ends after that.
    bool closes = false;
  };

  struct Start {
    std::function<Reply(const nlohmann::json& request)> answer = [](const auto&) {
      return Reply{};
    };
    Handshake handshake = Handshake::accepts;
    /// The address of this machine at which it listens.
    std::string host = "127.0.0.1";
    /// Nothing for any that is free.
    std::uint16_t port = 0;
  };

  explicit FakeBrowser(Start start);
  FakeBrowser() : FakeBrowser(Start{}) {}
  ~FakeBrowser();
  FakeBrowser(const FakeBrowser&) = delete;
  FakeBrowser& operator=(const FakeBrowser&) = delete;

  const DebuggingAddress& address() const { return address_; }

  /// The result of a request, as a browser sends it.
  static Reply result(const nlohmann::json& request, const nlohmann::json& value);
  static Reply error(const nlohmann::json& request, int code, const std::string& message);

  /// The requests for a connection, each with its headers, as they came.
  std::vector<std::string> handshakes() const;

  /// The messages so far.
  std::vector<nlohmann::json> received() const;

 private:
  struct Listener;

  void run();
  void serve();

  const Start start_;
  std::unique_ptr<Listener> listener_;
  DebuggingAddress address_;
  mutable Mutex mutex_;
  bool isEnding_ TALMO_GUARDED_BY(mutex_) = false;
  int connection_ TALMO_GUARDED_BY(mutex_) = -1;
  std::vector<std::string> handshakes_ TALMO_GUARDED_BY(mutex_);
  std::vector<nlohmann::json> received_ TALMO_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace talmo::test
