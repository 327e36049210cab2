#include "tests/backend/network/ConnectProxy.h"

#include <array>
#include <cstdint>
#include <poll.h>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/types.h>

#include "support/MutexLock.h"

namespace talmo::test {
namespace {

void send(int socket, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::send(socket, text.data(), text.size(), MSG_NOSIGNAL);
    if (count <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// What can be read; empty at the end.
std::string receive(int socket) {
  std::array<char, 16384> buffer{};
  const ssize_t count = ::recv(socket, buffer.data(), buffer.size(), 0);
  return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

}  // namespace

ConnectProxy::ConnectProxy(bool isOpen)
    : isOpen_(isOpen), end_(::eventfd(0, EFD_CLOEXEC)), thread_([this] { run(); }) {}

ConnectProxy::~ConnectProxy() {
  ::eventfd_write(end_.get(), 1);
  thread_.join();
}

std::vector<std::string> ConnectProxy::targets() const {
  const MutexLock lock(mutex_);
  return targets_;
}

/// Waits for something to read from either; false when the proxy is to end.
bool ConnectProxy::waitFor(int first, int second) {
  std::array<pollfd, 3> waits{{{.fd = end_.get(), .events = POLLIN, .revents = 0},
                               {.fd = first, .events = POLLIN, .revents = 0},
                               {.fd = second, .events = POLLIN, .revents = 0}}};
  ::poll(waits.data(), waits.size(), /*timeout=*/-1);
  return waits[0].revents == 0;
}

void ConnectProxy::run() {
  while (waitFor(listener_.descriptor(), -1)) {
    const FileDescriptor client = listener_.accept();
    serve(client.get());
  }
}

void ConnectProxy::serve(int client) {
  std::string head;
  while (!head.ends_with("\r\n\r\n")) {
    if (!waitFor(client, -1)) return;
    const std::string more = receive(client);
    if (more.empty()) return;
    head += more;
  }
  constexpr std::string_view method = "CONNECT ";
  if (!head.starts_with(method)) return;
  const std::string target =
      head.substr(method.size(), head.find(' ', method.size()) - method.size());
  {
    const MutexLock lock(mutex_);
    targets_.push_back(target);
  }
  if (!isOpen_) return send(client, "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n");
  const FileDescriptor server = connectToPort(std::stoi(target.substr(target.rfind(':') + 1)));
  if (!server) return;
  send(client, "HTTP/1.1 200 Connected\r\n\r\n");
  relay(client, server.get());
}

void ConnectProxy::relay(int client, int server) {
  while (waitFor(client, server)) {
    for (const auto& [from, to] : {std::pair(client, server), {server, client}}) {
      pollfd wait{.fd = from, .events = POLLIN, .revents = 0};
      if (::poll(&wait, 1, /*timeout=*/0) <= 0) continue;
      const std::string bytes = receive(from);
      if (bytes.empty()) return;
      send(to, bytes);
    }
  }
}

}  // namespace talmo::test
