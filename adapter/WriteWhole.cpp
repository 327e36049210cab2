#include "adapter/WriteWhole.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace talmo {

std::error_code writeWhole(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      // Somebody who has the descriptor too has made it non-blocking.
      pollfd room{.fd = descriptor, .events = POLLOUT, .revents = 0};
      ::poll(&room, 1, -1);
    } else if (errno != EINTR) {
      return {errno, std::generic_category()};
    }
  }
  return {};
}

}  // namespace talmo
