#include "platform/linux/processes/LinuxOutputPipe.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr int largestPiece = 256 * 1024;

}  // namespace

LinuxOutputPipe::LinuxOutputPipe(std::shared_ptr<ChildWatcher> watcher, FileDescriptor readingEnd)
    : watcher_(std::move(watcher)), readingEnd_(std::move(readingEnd)) {}

LinuxOutputPipe::~LinuxOutputPipe() {
  watcher_->forget(readingEnd_.get());
}

void LinuxOutputPipe::setReadabilityHandler(std::function<void(OutputPipe&)> handler) {
  std::shared_ptr<const Handler> before;
  if (handler) before = std::make_shared<const Handler>(std::move(handler));
  if (!readingEnd_) return;
  const MutexLock lock(mutex_);
  handler_.swap(before);
  if (handler_ && !before) {
    watcher_->watch(readingEnd_.get(), [weak = weak_from_this()] {
      if (const auto self = weak.lock()) self->callHandler();
    });
  } else if (!handler_ && before) {
    watcher_->forget(readingEnd_.get());
  }
}

void LinuxOutputPipe::callHandler() {
  std::shared_ptr<const Handler> handler;
  pollfd state{.fd = readingEnd_.get(), .events = POLLIN, .revents = 0};
  {
    const MutexLock lock(mutex_);
    handler = handler_;
  }
  if (!handler || ::poll(&state, 1, 0) <= 0) return;
  (*handler)(*this);
  if ((state.revents & POLLIN) != 0) return;
  // That was the end of the file, unless another handler has come to hear of it too.
  const MutexLock lock(mutex_);
  if (handler_ != handler) return;
  handler_ = nullptr;
  watcher_->forget(readingEnd_.get());
}

std::string LinuxOutputPipe::availableData() {
  std::string piece;
  if (!readingEnd_) return piece;
  while (true) {
    int size = 0;
    ::ioctl(readingEnd_.get(), FIONREAD, &size);
    piece.resize(static_cast<std::size_t>(std::clamp(size, 1, largestPiece)));
    const ssize_t count = ::read(readingEnd_.get(), piece.data(), piece.size());
    if (count >= 0) {
      piece.resize(static_cast<std::size_t>(count));
      return piece;
    }
    if (errno == EAGAIN) {
      pollfd state{.fd = readingEnd_.get(), .events = POLLIN, .revents = 0};
      ::poll(&state, 1, -1);
    } else if (errno != EINTR) {
      return {};
    }
  }
}

std::string LinuxOutputPipe::readToEnd() {
  std::string all;
  while (true) {
    const std::string piece = availableData();
    if (piece.empty()) return all;
    all += piece;
  }
}

}  // namespace talmo
