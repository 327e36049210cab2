#include "tests/support/SocketServer.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace talmo::test {

bool takesConnections(const std::filesystem::path& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string& name = path.native();
  if (name.size() >= sizeof(address.sun_path)) throw std::runtime_error("too long a path: " + name);
  std::ranges::copy(name, address.sun_path);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return false;
  const bool connected =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  ::close(socket);
  return connected;
}

}  // namespace talmo::test
