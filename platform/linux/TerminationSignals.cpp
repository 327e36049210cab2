#include "platform/linux/TerminationSignals.h"

#include <atomic>
#include <cerrno>

namespace talmo {
namespace {

// What a signal handler can reach.
std::atomic<LinuxDispatch*> stoppable = nullptr;
std::atomic<int> receivedSignal = 0;
static_assert(std::atomic<LinuxDispatch*>::is_always_lock_free &&
              std::atomic<int>::is_always_lock_free);

void handle(int signal) {
  const int error = errno;
  if (LinuxDispatch* const dispatch = stoppable.exchange(nullptr)) {
    receivedSignal = signal;
    dispatch->stopMainLoop();
  } else {
    // Takes effect when this handler returns.
    ::signal(signal, SIG_DFL);
    ::raise(signal);
  }
  errno = error;
}

}  // namespace

TerminationSignals::TerminationSignals(LinuxDispatch& dispatch) {
  receivedSignal = 0;
  stoppable = &dispatch;
  struct sigaction action{};
  action.sa_handler = handle;
  action.sa_flags = SA_RESTART;
  for (std::size_t index = 0; index < signals.size(); ++index) {
    ::sigaction(signals[index], nullptr, &before_[index]);
    if (before_[index].sa_handler == SIG_IGN) continue;
    ::sigaction(signals[index], &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  for (std::size_t index = 0; index < signals.size(); ++index) {
    ::sigaction(signals[index], &before_[index], nullptr);
  }
  stoppable = nullptr;
}

std::optional<int> TerminationSignals::received() const {
  const int signal = receivedSignal;
  if (signal == 0) return std::nullopt;
  return signal;
}

}  // namespace talmo
