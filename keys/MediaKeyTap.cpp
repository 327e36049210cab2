#include "keys/MediaKeyTap.h"

#include <utility>

#include "platform/Platform.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

// Quartz's and AppKit's numbers (CGEventTypes.h, NSEvent.h, IOKit's ev_keymap.h).
constexpr std::uint32_t sessionEventTap = 1;
constexpr std::uint32_t headInsertEventTap = 0;
constexpr std::uint32_t optionDefault = 0;
constexpr std::uint32_t systemDefined = 14;
constexpr std::uint32_t disabledByTimeout = 0xFFFFFFFE;
constexpr std::uint32_t disabledByUserInput = 0xFFFFFFFF;
constexpr std::int16_t auxControlButtons = 8;
constexpr std::int64_t keyStateMask = 0xFF00;
constexpr std::int64_t keyStateDown = 0x0A00;

}  // namespace

std::shared_ptr<MediaKeyTap> MediaKeyTap::make() {
  return std::shared_ptr<MediaKeyTap>(new MediaKeyTap);
}

MediaKeyTap::~MediaKeyTap() {
  stop();
  if (threadEnded_) threadEnded_->wait(std::nullopt);
}

void MediaKeyTap::setDelegate(std::weak_ptr<MediaKeyTapDelegate> delegate) {
  const MutexLock lock(delegateLock_);
  delegate_ = std::move(delegate);
}

bool MediaKeyTap::start() {
  if (isRunning_) return true;
  Dispatch& dispatch = platform().dispatch();
  // A tap that is being removed may still hold what the new one needs.
  if (threadEnded_) threadEnded_->wait(std::nullopt);

  const std::shared_ptr<Semaphore> installed = dispatch.makeSemaphore(0);
  const std::shared_ptr<Semaphore> ended = dispatch.makeSemaphore(0);
  const auto result = std::make_shared<bool>(false);
  threadEnded_ = ended;
  dispatch.startThread("nl.brelm.talmo.media-key-tap", QualityOfService::userInteractive,
                       [weakTap = weak_from_this(), installed, ended, result] {
                         std::shared_ptr<RunLoop> runLoop;
                         if (const std::shared_ptr<MediaKeyTap> tap = weakTap.lock()) {
                           *result = tap->install(runLoop);
                         }
                         installed->signal();
                         if (runLoop) runLoop->run();
                         ended->signal();
                       });
  installed->wait(std::nullopt);
  return *result;
}

bool MediaKeyTap::install(std::shared_ptr<RunLoop>& runLoop) {
  EventTap& eventTap = platform().eventTap();
  const std::shared_ptr<EventTapPort> port = eventTap.create({
      .location = sessionEventTap,
      .placement = headInsertEventTap,
      .options = optionDefault,
      .eventsOfInterest = std::uint64_t{1} << systemDefined,
      .callback = &MediaKeyTap::callback,
      .context = this,
  });
  if (!port) return false;
  {
    const MutexLock lock(portLock_);
    _machPort = port;
  }
  runLoop = eventTap.currentRunLoop();
  tapRunLoop_ = runLoop;
  runLoop->addSource(eventTap.makeRunLoopSource(port));
  isRunning_ = true;
  return true;
}

void MediaKeyTap::stop() {
  if (!isRunning_) return;
  std::shared_ptr<EventTapPort> port;
  {
    const MutexLock lock(portLock_);
    port = _machPort;
  }
  if (!port || !tapRunLoop_) return;
  isRunning_ = false;
  tapRunLoop_->performBlock([port] {
    port->enable(false);
    port->invalidate();
    platform().eventTap().currentRunLoop()->stop();
  });
  tapRunLoop_->wakeUp();
  {
    const MutexLock lock(portLock_);
    _machPort = nullptr;
  }
  tapRunLoop_ = nullptr;
}

std::optional<DecodedMediaKey> MediaKeyTap::decode(std::int64_t data1) {
  const auto word = static_cast<std::uint32_t>(data1);
  const std::optional<MediaKey> key = mediaKey(static_cast<std::int32_t>(word >> 16));
  if (!key) return std::nullopt;
  return DecodedMediaKey{.key = *key,
                         .isKeyDown = (data1 & keyStateMask) == keyStateDown,
                         .isRepeat = (data1 & 1) != 0};
}

TapVerdict MediaKeyTap::callback(TapEvent& event, void* context) {
  if (context == nullptr) return TapVerdict::pass;
  return static_cast<MediaKeyTap*>(context)->handle(event);
}

TapVerdict MediaKeyTap::handle(TapEvent& event) {
  const std::uint32_t type = event.type();
  if (type == disabledByTimeout || type == disabledByUserInput) {
    std::shared_ptr<EventTapPort> port;
    {
      const MutexLock lock(portLock_);
      port = _machPort;
    }
    if (port) port->enable(true);
    return TapVerdict::pass;
  }
  if (type != systemDefined) return TapVerdict::pass;
  const std::optional<SystemDefinedEvent> converted = event.systemDefined();
  if (!converted || converted->subtype != auxControlButtons) return TapVerdict::pass;
  const std::optional<DecodedMediaKey> decoded = decode(converted->data1);
  if (!decoded) return TapVerdict::pass;
  std::shared_ptr<MediaKeyTapDelegate> delegate;
  {
    const MutexLock lock(delegateLock_);
    delegate = delegate_.lock();
  }
  if (!delegate) return TapVerdict::pass;
  return delegate->mediaKeyTap(*this, decoded->key, decoded->isKeyDown, decoded->isRepeat)
             ? TapVerdict::consume
             : TapVerdict::pass;
}

}  // namespace talmo
