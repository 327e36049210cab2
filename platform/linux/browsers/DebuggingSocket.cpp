#include "platform/linux/browsers/DebuggingSocket.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address_v4.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <utility>

namespace talmo {

namespace asio = boost::asio;
namespace beast = boost::beast;
using Error = boost::system::error_code;

/// The library's side of it. The loop runs inside the calls and nowhere else.
struct DebuggingSocket::Connection {
  /// Runs the loop until `isDone`, or `deadline`.
  void runUntil(const bool& isDone, Uptime deadline) {
    loop.restart();
    while (!isDone && loop.run_one_until(deadline) > 0) {
    }
  }

  /// Ends the connection, and with it whatever is under way.
  void end() {
    isOpen = false;
    Error ignored;
    static_cast<void>(stream.next_layer().close(ignored));
    loop.restart();
    loop.run();
  }

  /// Starts an operation and waits for it; when it fails or takes too long, the connection ends.
  template <class Start>
  bool complete(Start start, Uptime deadline) {
    bool isDone = false;
    Error result;
    start([&](Error error, auto&&...) {
      result = error;
      isDone = true;
    });
    runUntil(isDone, deadline);
    if (!isDone || result) end();
    return isOpen;
  }

  asio::io_context loop;
  beast::websocket::stream<asio::ip::tcp::socket> stream{loop};
  bool isOpen = true;
  /// A read may outlast the call that began it.
  beast::flat_buffer incoming;
  bool isReading = false;
  bool hasRead = false;
};

DebuggingSocket::DebuggingSocket(std::unique_ptr<Connection> connection)
    : connection_(std::move(connection)) {}

DebuggingSocket::~DebuggingSocket() = default;

std::unique_ptr<DebuggingSocket> DebuggingSocket::connect(const DebuggingAddress& address,
                                                          Uptime deadline) {
  auto connection = std::make_unique<Connection>();
  auto& stream = connection->stream;
  const asio::ip::tcp::endpoint endpoint(asio::ip::address_v4::loopback(), address.port);
  if (!connection->complete(
          [&](auto done) { stream.next_layer().async_connect(endpoint, std::move(done)); },
          deadline)) {
    return nullptr;
  }
  // Requests are short, and each waits for an answer.
  Error ignored;
  static_cast<void>(stream.next_layer().set_option(asio::ip::tcp::no_delay(true), ignored));
  stream.read_message_max(longestMessage);
  const std::string host = "127.0.0.1:" + std::to_string(address.port);
  if (!connection->complete(
          [&](auto done) { stream.async_handshake(host, address.path, std::move(done)); },
          deadline)) {
    return nullptr;
  }
  return std::unique_ptr<DebuggingSocket>(new DebuggingSocket(std::move(connection)));
}

bool DebuggingSocket::isOpen() const {
  return connection_->isOpen;
}

bool DebuggingSocket::send(const std::string& text, Uptime deadline) {
  return isOpen() && connection_->complete(
                         [&](auto done) {
                           connection_->stream.async_write(asio::buffer(text), std::move(done));
                         },
                         deadline);
}

std::optional<std::string> DebuggingSocket::receive(Uptime deadline) {
  Connection& connection = *connection_;
  if (!isOpen()) return std::nullopt;
  if (!connection.isReading) {
    connection.isReading = true;
    connection.hasRead = false;
    connection.stream.async_read(connection.incoming, [&connection](Error error, std::size_t) {
      connection.hasRead = true;
      if (error) connection.isOpen = false;
    });
  }
  connection.runUntil(connection.hasRead, deadline);
  if (!connection.hasRead) return std::nullopt;
  connection.isReading = false;
  if (!connection.isOpen) {
    connection.end();
    return std::nullopt;
  }
  std::string text = beast::buffers_to_string(connection.incoming.data());
  connection.incoming.clear();
  return text;
}

}  // namespace talmo
