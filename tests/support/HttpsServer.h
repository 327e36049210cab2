#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/support/Certificate.h"

namespace httplib {
struct Response;
class SSLServer;
}  // namespace httplib

namespace talmo::test {

/// An HTTPS server on the loopback interface, in the test's own process, that answers GETs as a
/// test likes, badly too. Each connection is for one request.
class HttpsServer {
 public:
  struct Request {
    /// Path and query, as they were sent.
    std::string target;
    std::multimap<std::string, std::string> headers;
  };

  struct Answer {
    int status = 200;
    std::string body = {};
    std::multimap<std::string, std::string> headers = {};
    /// Whether the body goes compressed.
    bool isCompressed = false;
    /// The length that the body is said to have. The connection ends with the body all the same.
    std::optional<std::size_t> claimedLength = std::nullopt;
    /// Whether the body is sent again and again, until the client or the server goes.
    bool isEndless = false;
    /// Whether nothing is answered until the server goes.
    bool isSilent = false;
  };

  /// Called on the server's threads.
  using Answers = std::function<Answer(const Request&)>;

  /// Throws when there can be no server. The certificate outlives it.
  HttpsServer(const Certificate& certificate, Answers answers);
  ~HttpsServer();
  HttpsServer(const HttpsServer&) = delete;
  HttpsServer& operator=(const HttpsServer&) = delete;

  int port() const { return port_; }

  /// The URL of `target` on this server.
  std::string url(const std::string& target, const std::string& host = "127.0.0.1") const;

  /// What was asked for so far, in order.
  std::vector<Request> requests() const;

 private:
  void send(const Answer& answer, httplib::Response& response);

  const Answers answers_;
  std::unique_ptr<httplib::SSLServer> server_;
  int port_ = 0;
  std::atomic<bool> isEnding_ = false;
  mutable Mutex mutex_;
  std::vector<Request> requests_ TALMO_GUARDED_BY(mutex_);
  std::thread thread_;
};

}  // namespace talmo::test
