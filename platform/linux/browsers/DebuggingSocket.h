#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/browsers/DebuggingAddress.h"
#include "support/Time.h"

namespace talmo {

/// A WebSocket to a browser on this machine. It goes to the loopback interface and nowhere else,
/// and names no origin, as no page has a part in it. One thread; closed with the object, without
/// waiting.
class DebuggingSocket {
 public:
  /// The longest message that is taken; a longer one ends the connection.
  static constexpr std::size_t longestMessage = std::size_t{16} << 20;

  /// Connects; nothing when nobody is there, when whoever is there knows nothing of the path, and
  /// when there was no answer until `deadline`.
  static std::unique_ptr<DebuggingSocket> connect(const DebuggingAddress& address, Uptime deadline);

  ~DebuggingSocket();
  DebuggingSocket(const DebuggingSocket&) = delete;
  DebuggingSocket& operator=(const DebuggingSocket&) = delete;

  /// Whether the connection stands as far as was noticed. It ends when the browser ends it, and
  /// with a message that is too long or is no UTF-8, or that cannot be sent in time.
  bool isOpen() const;

  /// Sends a text; false when the connection has ended.
  bool send(const std::string& text, Uptime deadline);

  /// The next text. Nothing when the connection has ended, and when none came until `deadline`,
  /// after which a later call can still get it.
  std::optional<std::string> receive(Uptime deadline);

 private:
  struct Connection;
  explicit DebuggingSocket(std::unique_ptr<Connection> connection);

  std::unique_ptr<Connection> connection_;
};

}  // namespace talmo
