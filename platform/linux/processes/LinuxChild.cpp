#include "platform/linux/processes/LinuxChild.h"

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <utility>

#include "platform/linux/processes/Pidfd.h"
#include "support/MutexLock.h"

namespace talmo {

void LinuxChild::watch(FileDescriptor process) {
  const MutexLock lock(mutex_);
  process_ = std::move(process);
  watcher_->watch(process_.get(), [self = shared_from_this()] { self->reap(); });
}

bool LinuxChild::isRunning() const {
  const MutexLock lock(mutex_);
  return static_cast<bool>(process_);
}

void LinuxChild::terminate() const {
  const MutexLock lock(mutex_);
  if (process_) ::pidfd_send_signal(process_.get(), SIGTERM, nullptr, 0);
}

void LinuxChild::waitUntilExit() {
  MutexLock lock(mutex_);
  while (process_) ended_.wait(lock);
}

void LinuxChild::setTerminationHandler(Terminated handler) {
  // What was there before goes outside of the lock: it may hold anything.
  const MutexLock lock(mutex_);
  handler_.swap(handler);
  if (handler_ && termination_) {
    watcher_->post([self = shared_from_this()] { self->callHandler(); });
  }
}

void LinuxChild::reap() {
  {
    const MutexLock lock(mutex_);
    if (!process_) return;
    siginfo_t info{};
    const auto process = static_cast<id_t>(process_.get());
    if (::waitid(P_PIDFD, process, &info, WEXITED | WNOHANG) == 0) {
      if (info.si_pid == 0) return;
    } else if (errno == EINTR) {
      return;
    }
    // Should somebody else have reaped it, how it ended is not known: an exit with zero.
    const bool isExit = info.si_code == CLD_EXITED || info.si_pid == 0;
    termination_ = {
        isExit ? ChildTermination::Reason::exit : ChildTermination::Reason::uncaughtSignal,
        info.si_status};
    watcher_->forget(process_.get());
    process_.reset();
    ended_.notify_all();
  }
  callHandler();
}

void LinuxChild::callHandler() {
  Terminated handler;
  ChildTermination termination;
  {
    const MutexLock lock(mutex_);
    handler.swap(handler_);
    termination = *termination_;
  }
  if (handler) handler(termination);
}

}  // namespace talmo
