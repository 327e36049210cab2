#include "tests/backend/network/Listener.h"

#include <cerrno>
#include <cstdint>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace talmo::test {
namespace {

sockaddr_in loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace

Listener::Listener() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address = loopback(0);
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  if (::bind(socket_.get(), any, size) != 0 || ::listen(socket_.get(), SOMAXCONN) != 0 ||
      ::getsockname(socket_.get(), any, &size) != 0) {
    throw std::system_error(errno, std::generic_category(), "no port to listen on");
  }
  port_ = ntohs(address.sin_port);
}

bool Listener::isAsked() const {
  pollfd wait{.fd = socket_.get(), .events = POLLIN, .revents = 0};
  return ::poll(&wait, 1, /*timeout=*/0) > 0;
}

FileDescriptor Listener::accept() const {
  return FileDescriptor(::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
}

FileDescriptor connectToPort(int port) {
  FileDescriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const sockaddr_in address = loopback(port);
  const auto* const any = reinterpret_cast<const sockaddr*>(&address);
  if (::connect(socket.get(), any, sizeof address) != 0) socket.reset();
  return socket;
}

}  // namespace talmo::test
