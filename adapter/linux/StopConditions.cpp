#include "adapter/linux/StopConditions.h"

#include <sys/syscall.h>
#include <unistd.h>

namespace talmo {

StopConditions::StopConditions(int output, pid_t parent)
    : parent_(parent),
      // The header that declares pidfd_open is none for C++ in glibc 2.36.
      parentDescriptor_(static_cast<int>(::syscall(SYS_pidfd_open, parent, 0))),
      // Without events to look for, poll says of the output only that it is broken. It skips a
      // parent of which there is no descriptor, because it has gone.
      descriptors_{pollfd{.fd = output, .events = 0, .revents = 0},
                   pollfd{.fd = parentDescriptor_.get(), .events = POLLIN, .revents = 0}} {}

bool StopConditions::met() const {
  return descriptors_[0].revents != 0 || descriptors_[1].revents != 0 || ::getppid() != parent_;
}

}  // namespace talmo
