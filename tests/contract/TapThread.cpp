#include "tests/contract/TapThread.h"

#include <utility>

#include "support/MutexLock.h"

namespace talmo::test {

TapThread::TapThread(Dispatch& dispatch, EventTap& eventTap, Decide decide) {
  state_->decide = std::move(decide);
  dispatch.startThread("nl.brelm.talmo.contract-tap", QualityOfService::userInteractive,
                       [state = state_, &eventTap] {
                         state->port = eventTap.create({.location = 1,
                                                        .eventsOfInterest = std::uint64_t{1} << 14,
                                                        .callback = &TapThread::callback,
                                                        .context = state.get()});
                         if (state->port) {
                           state->runLoop = eventTap.currentRunLoop();
                           state->runLoop->addSource(eventTap.makeRunLoopSource(state->port));
                           state->isInstalled = true;
                         }
                         state->isDecided = true;
                         if (state->runLoop) state->runLoop->run();
                         state->hasEnded = true;
                       });
}

TapThread::~TapThread() {
  if (isInstalled() && !hasEnded()) stop();
}

void TapThread::stop() {
  perform([state = state_] {
    state->port->enable(false);
    state->port->invalidate();
    state->runLoop->stop();
  });
}

void TapThread::perform(std::function<void()> block) {
  state_->runLoop->performBlock(std::move(block));
  state_->runLoop->wakeUp();
}

std::vector<TapThread::Shown> TapThread::shown() const {
  const MutexLock lock(state_->mutex);
  return state_->shown;
}

TapVerdict TapThread::callback(TapEvent& event, void* context) {
  auto& state = *static_cast<State*>(context);
  const Shown shown{.type = event.type(), .content = event.systemDefined()};
  {
    const MutexLock lock(state.mutex);
    state.shown.push_back(shown);
  }
  const TapVerdict verdict = state.decide ? state.decide(shown) : TapVerdict::consume;
  ++state.shownCount;
  return verdict;
}

}  // namespace talmo::test
