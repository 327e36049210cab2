#include "platform/simulated/SimulatedChild.h"

#include <algorithm>
#include <csignal>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {

SimulatedChild::SimulatedChild(Dispatch& dispatch, ChildProcessParameters parameters)
    : dispatch_(dispatch),
      queue_(dispatch.globalQueue(QualityOfService::utility)),
      parameters_(std::move(parameters)) {
  pipes_[0].isConnected = parameters_.standardOutput == ChildOutput::pipe;
  pipes_[1].isConnected = parameters_.standardError == ChildOutput::pipe;
}

std::optional<std::string> SimulatedChild::launch(SimulatedChildScript script) {
  const MutexLock lock(mutex_);
  if (wasLaunched_) return "the child has been started before";
  wasLaunched_ = true;
  script_ = std::move(script);
  if (script_.launchFailure()) {
    for (Pipe& pipe : pipes_) closeWritingEnd(pipe);
  } else {
    isRunning_ = true;
    goOn();
  }
  return script_.launchFailure();
}

bool SimulatedChild::isRunning() const {
  const MutexLock lock(mutex_);
  return isRunning_;
}

std::optional<ChildTermination> SimulatedChild::termination() const {
  const MutexLock lock(mutex_);
  return termination_;
}

int SimulatedChild::terminates() const {
  const MutexLock lock(mutex_);
  return terminates_;
}

void SimulatedChild::say(const std::string& bytes) {
  const MutexLock lock(mutex_);
  write(pipe(Output::standardOutput), bytes);
}

void SimulatedChild::terminate() {
  const MutexLock lock(mutex_);
  if (!isRunning_) return;
  ++terminates_;
  if (!script_.obeysTerminate()) return;
  queue_.async([self = shared_from_this()] {
    self->end({ChildTermination::Reason::uncaughtSignal, SIGTERM});
  });
}

void SimulatedChild::end(ChildTermination termination) {
  const MutexLock lock(mutex_);
  if (isRunning_) finish(termination);
}

void SimulatedChild::waitUntilExit() {
  MutexLock lock(mutex_);
  bool goesOn = true;
  while (isRunning_ && goesOn) {
    const std::shared_ptr<Semaphore> change = nextChange();
    lock.unlock();
    goesOn = change->wait(std::nullopt);
    lock.lock();
  }
}

void SimulatedChild::setTerminationHandler(Terminated handler) {
  {
    const MutexLock lock(mutex_);
    terminated_.swap(handler);
    if (termination_) callTerminated();
  }
  // What was there before goes outside of the lock: it may hold anything.
}

void SimulatedChild::setReadingEnd(Output output, const std::weak_ptr<OutputPipe>& end) {
  const MutexLock lock(mutex_);
  pipe(output).reader = end;
}

void SimulatedChild::closeReadingEnd(Output output) {
  std::shared_ptr<const Reader> dropped;
  const MutexLock lock(mutex_);
  Pipe& closed = pipe(output);
  closed.hasReader = false;
  closed.bytes.clear();
  dropped = std::exchange(closed.handler, nullptr);
  if (waitsForSpace_) goOn();
}

void SimulatedChild::setReadabilityHandler(Output output, Reader handler) {
  std::shared_ptr<const Reader> before;
  if (handler) before = std::make_shared<const Reader>(std::move(handler));
  const MutexLock lock(mutex_);
  pipe(output).handler.swap(before);
  callReader(pipe(output));
}

std::string SimulatedChild::read(Output output, bool toEnd) {
  std::string bytes;
  MutexLock lock(mutex_);
  Pipe& source = pipe(output);
  bool goesOn = true;
  while (goesOn) {
    if (!source.bytes.empty()) {
      bytes += std::exchange(source.bytes, {});
      if (waitsForSpace_) goOn();
      if (!toEnd) break;
    }
    if (!source.hasWriter) break;
    const std::shared_ptr<Semaphore> change = nextChange();
    lock.unlock();
    goesOn = change->wait(std::nullopt);
    lock.lock();
  }
  return bytes;
}

/// Takes steps until one has to wait.
void SimulatedChild::advance() {
  const MutexLock lock(mutex_);
  while (isRunning_) {
    if (step_ == script_.steps().size()) {
      finish({ChildTermination::Reason::exit, 0});
    } else if (!take(script_.steps()[step_])) {
      return;
    }
  }
}

/// Returns whether the next step may follow at once.
bool SimulatedChild::take(const SimulatedChildScript::Step& step) {
  if (const auto* const writing = std::get_if<SimulatedChildScript::Write>(&step)) {
    if (!write(pipe(writing->output), writing->bytes)) return false;
  } else if (const auto* const waiting = std::get_if<SimulatedChildScript::Wait>(&step)) {
    ++step_;
    queue_.asyncAfter(waiting->duration, [self = shared_from_this()] { self->advance(); });
    return false;
  } else if (const auto* const closing = std::get_if<SimulatedChildScript::Close>(&step)) {
    closeWritingEnd(pipe(closing->output));
  } else if (const auto* const ending = std::get_if<SimulatedChildScript::End>(&step)) {
    finish(ending->termination);
    return false;
  } else {
    return false;
  }
  ++step_;
  return true;
}

/// Writes what there is space for; returns whether that was all.
bool SimulatedChild::write(Pipe& pipe, const std::string& bytes) {
  if (!pipe.isConnected || !pipe.hasWriter) return true;
  if (!pipe.hasReader) {
    finish({ChildTermination::Reason::uncaughtSignal, SIGPIPE});
    return false;
  }
  const std::size_t count = std::min(bytes.size() - written_, pipeCapacity - pipe.bytes.size());
  pipe.bytes.append(bytes, written_, count);
  written_ += count;
  if (count > 0) {
    announceChange();
    callReader(pipe);
  }
  waitsForSpace_ = written_ < bytes.size();
  if (waitsForSpace_) return false;
  written_ = 0;
  return true;
}

/// Called where there is no other `advance` on its way.
void SimulatedChild::goOn() {
  waitsForSpace_ = false;
  queue_.async([self = shared_from_this()] { self->advance(); });
}

void SimulatedChild::finish(ChildTermination termination) {
  isRunning_ = false;
  termination_ = termination;
  for (Pipe& pipe : pipes_) closeWritingEnd(pipe);
  callTerminated();
}

void SimulatedChild::closeWritingEnd(Pipe& pipe) {
  pipe.hasWriter = false;
  announceChange();
  callReader(pipe);
}

/// Queues a call of the handler when there is something for it, and no other call on its way.
void SimulatedChild::callReader(Pipe& pipe) {
  if (!pipe.handler || pipe.isCalling || (pipe.bytes.empty() && pipe.hasWriter)) return;
  pipe.isCalling = true;
  queue_.async([self = shared_from_this(), &pipe] { self->runReader(pipe); });
}

void SimulatedChild::runReader(Pipe& pipe) {
  // Both outlive the lock, as their end may come here.
  std::shared_ptr<const Reader> handler;
  std::shared_ptr<OutputPipe> reader;
  MutexLock lock(mutex_);
  handler = pipe.handler;
  reader = pipe.reader.lock();
  const bool isAtEnd = pipe.bytes.empty() && !pipe.hasWriter;
  if (handler && reader && (isAtEnd || !pipe.bytes.empty())) {
    lock.unlock();
    (*handler)(*reader);
    lock.lock();
    if (isAtEnd && pipe.handler == handler) pipe.handler = nullptr;
  }
  pipe.isCalling = false;
  callReader(pipe);
  lock.unlock();
}

void SimulatedChild::callTerminated() {
  if (terminated_) queue_.async([self = shared_from_this()] { self->runTerminated(); });
}

void SimulatedChild::runTerminated() {
  Terminated handler;
  ChildTermination termination;
  {
    const MutexLock lock(mutex_);
    handler.swap(terminated_);
    termination = *termination_;
  }
  if (handler) handler(termination);
}

std::shared_ptr<Semaphore> SimulatedChild::nextChange() {
  waiters_.push_back(dispatch_.makeSemaphore(0));
  return waiters_.back();
}

void SimulatedChild::announceChange() {
  for (const std::shared_ptr<Semaphore>& waiter : std::exchange(waiters_, {})) waiter->signal();
}

}  // namespace talmo
