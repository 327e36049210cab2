#pragma once

#include <array>
#include <poll.h>
#include <span>
#include <sys/types.h>

#include "platform/linux/FileDescriptor.h"

namespace talmo {

/// When the helper has to end: its output has no reader any more, or the process that started it
/// has gone.
class StopConditions {
 public:
  /// `parent` is what getppid(2) says at the start.
  StopConditions(int output, pid_t parent);

  /// What wakes poll(2) when the helper has to end.
  std::span<pollfd> descriptors() { return descriptors_; }

  /// Whether the helper has to end, by what poll(2) last said of `descriptors`.
  bool met() const;

 private:
  pid_t parent_;
  FileDescriptor parentDescriptor_;
  std::array<pollfd, 2> descriptors_;
};

}  // namespace talmo
