#include "tests/support/HttpsServer.h"

#include <httplib.h>
#include <stdexcept>
#include <utility>

#include "support/MutexLock.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// More requests than any test makes at once: a silent answer keeps its thread.
constexpr std::size_t threads = 40;

/// The library compresses what has the first type, for clients that take it, and not the second.
constexpr const char* compressedType = "text/plain";
constexpr const char* plainType = "application/octet-stream";

}  // namespace

HttpsServer::HttpsServer(const Certificate& certificate, Answers answers)
    : answers_(std::move(answers)),
      server_(std::make_unique<httplib::SSLServer>(certificate.certificate(), certificate.key())) {
  if (!server_->is_valid()) throw std::runtime_error("no HTTPS server");
  server_->set_keep_alive_max_count(1);
  server_->new_task_queue = [] { return new httplib::ThreadPool(threads); };
  server_->Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
    const Request asked{.target = request.target,
                        .headers = {request.headers.begin(), request.headers.end()}};
    {
      const MutexLock lock(mutex_);
      requests_.push_back(asked);
    }
    send(answers_(asked), response);
  });
  port_ = server_->bind_to_any_port("127.0.0.1");
  if (port_ <= 0) throw std::runtime_error("no port for the HTTPS server");
  thread_ = std::thread([this] { server_->listen_after_bind(); });
  // Only a server that listens can be stopped.
  waitUntil([this] { return server_->is_running(); });
}

HttpsServer::~HttpsServer() {
  isEnding_ = true;
  server_->stop();
  thread_.join();
}

void HttpsServer::send(const Answer& answer, httplib::Response& response) {
  if (answer.isSilent) waitUntil([this] { return isEnding_.load(); }, 30s);
  response.status = answer.status;
  for (const auto& [name, value] : answer.headers) response.set_header(name, value);
  if (answer.isEndless) {
    response.set_chunked_content_provider(
        plainType, [this, body = answer.body](std::size_t, httplib::DataSink& sink) {
          return !isEnding_ && sink.write(body.data(), body.size());
        });
  } else if (answer.claimedLength) {
    response.set_content_provider(
        *answer.claimedLength, plainType,
        [body = answer.body](std::size_t offset, std::size_t, httplib::DataSink& sink) {
          // Asked for more, it has no more, which ends the connection.
          return offset == 0 && sink.write(body.data(), body.size());
        });
  } else {
    response.set_content(answer.body, answer.isCompressed ? compressedType : plainType);
  }
}

std::string HttpsServer::url(const std::string& target, const std::string& host) const {
  return "https://" + host + ":" + std::to_string(port_) + target;
}

std::vector<HttpsServer::Request> HttpsServer::requests() const {
  const MutexLock lock(mutex_);
  return requests_;
}

}  // namespace talmo::test

/// The thread sanitizer cannot see that the library, built without it, makes its list of HTTP
/// methods in one thread before it reads it in others.
extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libcpp-httplib.so";
}
