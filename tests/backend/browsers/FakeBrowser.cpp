#include "tests/backend/browsers/FakeBrowser.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <sstream>
#include <sys/socket.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo::test {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using Error = boost::system::error_code;
using Tcp = asio::ip::tcp;

struct FakeBrowser::Listener {
  asio::io_context loop;
  Tcp::acceptor acceptor{loop};
  Tcp::socket socket{loop};
};

FakeBrowser::FakeBrowser(Start start)
    : start_(std::move(start)), listener_(std::make_unique<Listener>()) {
  const Tcp::endpoint endpoint(asio::ip::make_address(start_.host), start_.port);
  listener_->acceptor = Tcp::acceptor(listener_->loop, endpoint);
  address_ = {.port = listener_->acceptor.local_endpoint().port(),
              .path = "/devtools/browser/0a1b2c3d-fake"};
  thread_ = std::thread([this] { run(); });
}

FakeBrowser::~FakeBrowser() {
  {
    const MutexLock lock(mutex_);
    isEnding_ = true;
    ::shutdown(listener_->acceptor.native_handle(), SHUT_RDWR);
    if (connection_ >= 0) ::shutdown(connection_, SHUT_RDWR);
  }
  thread_.join();
}

FakeBrowser::Reply FakeBrowser::result(const nlohmann::json& request, const nlohmann::json& value) {
  nlohmann::json answer{{"id", request.at("id")}, {"result", value}};
  if (request.contains("sessionId")) answer["sessionId"] = request["sessionId"];
  return {.texts = {answer.dump()}};
}

FakeBrowser::Reply FakeBrowser::error(const nlohmann::json& request, int code,
                                      const std::string& message) {
  const nlohmann::json answer{{"id", request.at("id")},
                              {"error", {{"code", code}, {"message", message}}}};
  return {.texts = {answer.dump()}};
}

std::vector<std::string> FakeBrowser::handshakes() const {
  const MutexLock lock(mutex_);
  return handshakes_;
}

std::vector<nlohmann::json> FakeBrowser::received() const {
  const MutexLock lock(mutex_);
  return received_;
}

void FakeBrowser::run() {
  for (;;) {
    Error error;
    static_cast<void>(listener_->acceptor.accept(listener_->socket, error));
    {
      const MutexLock lock(mutex_);
      if (isEnding_) return;
      if (error) continue;
      connection_ = listener_->socket.native_handle();
    }
    serve();
    const MutexLock lock(mutex_);
    connection_ = -1;
    static_cast<void>(listener_->socket.close(error));
  }
}

void FakeBrowser::serve() {
  Tcp::socket& socket = listener_->socket;
  Error error;
  beast::flat_buffer buffer;
  http::request<http::string_body> request;
  http::read(socket, buffer, request, error);
  if (error) return;
  {
    std::ostringstream text;
    text << request;
    const MutexLock lock(mutex_);
    handshakes_.push_back(text.str());
  }
  if (start_.handshake == Handshake::hangs) {
    // Until the other side gives up.
    char byte = 0;
    socket.read_some(asio::buffer(&byte, 1), error);
    return;
  }
  if (start_.handshake == Handshake::talksNonsense) {
    asio::write(socket, asio::buffer(std::string("220 mail.example ESMTP\r\n")), error);
    return;
  }
  if (request.target() != address_.path) {
    http::response<http::string_body> response(http::status::not_found, 11);
    response.prepare_payload();
    http::write(socket, response, error);
    return;
  }
  beast::websocket::stream<Tcp::socket&> stream(socket);
  stream.accept(request, error);
  while (!error) {
    beast::flat_buffer message;
    stream.read(message, error);
    if (error) break;
    const auto json = nlohmann::json::parse(beast::buffers_to_string(message.data()));
    {
      const MutexLock lock(mutex_);
      received_.push_back(json);
    }
    const Reply reply = start_.answer(json);
    for (const std::string& text : reply.texts) stream.write(asio::buffer(text), error);
    if (!reply.bytes.empty()) asio::write(socket, asio::buffer(reply.bytes), error);
    if (reply.closes) break;
  }
}

}  // namespace talmo::test
