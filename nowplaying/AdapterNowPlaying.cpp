#include "nowplaying/AdapterNowPlaying.h"

#include <csignal>
#include <optional>
#include <utility>

#include "nowplaying/AdapterFiles.h"
#include "nowplaying/AdapterJson.h"
#include "nowplaying/LastOwner.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("adapter");

}  // namespace

std::shared_ptr<AdapterNowPlaying> AdapterNowPlaying::make() {
  return std::shared_ptr<AdapterNowPlaying>(new AdapterNowPlaying);
}

AdapterNowPlaying::AdapterNowPlaying()
    : queue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.adapter",
                                                   QualityOfService::unspecified)) {}

AdapterNowPlaying::~AdapterNowPlaying() {
  leaveProcess();
}

void AdapterNowPlaying::start() {
  stop();
  const std::optional<AdapterFiles> files = AdapterFiles::find();
  if (!files) return;
  const std::shared_ptr<ChildProcess> process =
      platform().childProcesses().make(files->run({"stream"}, ChildOutput::pipe));
  const std::uint64_t run = run_;
  process->standardOutput()->setReadabilityHandler(
      [weak = weak_from_this(), run](OutputPipe& output) {
        std::string bytes = output.availableData();
        if (bytes.empty()) return;
        const std::shared_ptr<AdapterNowPlaying> self = weak.lock();
        if (!self) return;
        self->queue_->async([weak, run, bytes = std::move(bytes)]() mutable {
          if (const auto consumer = weak.lock()) consumer->consume(run, std::move(bytes));
        });
      });
  // Nobody reads it, but a full pipe would stop the adapter.
  process->standardError()->setReadabilityHandler(
      [](OutputPipe& output) { (void)output.availableData(); });
  process->setTerminationHandler(
      [weak = weak_from_this(), run,
       weakProcess = std::weak_ptr(process)](const ChildTermination& termination) {
        if (const std::shared_ptr<ChildProcess> child = weakProcess.lock()) {
          child->standardOutput()->setReadabilityHandler({});
          child->standardError()->setReadabilityHandler({});
        }
        if (const auto self = weak.lock()) self->ended(run, termination);
      });
  if (const std::optional<std::string> error = process->launch()) {
    log.info("adapter stream failed to start: %{public}s", *error);
    return;
  }
  process_ = process;
  log.info("adapter stream started");
}

void AdapterNowPlaying::stop() {
  leaveProcess();
  ++run_;
  queue_->async([weak = weak_from_this(), run = run_] {
    if (const auto self = weak.lock()) self->forget(run);
  });
}

void AdapterNowPlaying::leaveProcess() {
  if (!process_) return;
  process_->standardOutput()->setReadabilityHandler({});
  process_->standardError()->setReadabilityHandler({});
  process_->setTerminationHandler({});
  if (process_->isRunning()) process_->terminate();
  process_ = nullptr;
}

void AdapterNowPlaying::ended(std::uint64_t run, const ChildTermination& termination) {
  if (termination != ChildTermination{ChildTermination::Reason::uncaughtSignal, SIGTERM}) {
    log.info("adapter stream ended (status %d)", termination.status);
  }
  queue_->async([weak = weak_from_this(), run] {
    const std::shared_ptr<AdapterNowPlaying> self = weak.lock();
    if (self && self->currentRun_ == run) self->forget(run);
  });
}

void AdapterNowPlaying::forget(std::uint64_t run) {
  currentRun_ = run;
  streamState_.clear();
  buffer_.clear();
}

void AdapterNowPlaying::consume(std::uint64_t run, std::string bytes) {
  if (run != currentRun_) return;
  for (std::string& line : buffer_.append(std::move(bytes))) {
    std::optional<AdapterEnvelope> envelope = AdapterJson::envelope(std::move(line));
    if (!envelope) continue;
    streamState_ =
        applying(std::move(envelope->payload), envelope->isDiff, std::move(streamState_));
    publish(snapshotFrom(streamState_, [this](const std::optional<AdapterText>& base64) {
      return artworkCache_.image(base64, decodedArtwork);
    }));
  }
}

void AdapterNowPlaying::publish(std::optional<AdapterNowPlayingSnapshot> snapshot) {
  if (snapshot) LastOwner::record(*snapshot);
  platform().dispatch().mainQueue().async(
      [weak = weak_from_this(), snapshot = std::move(snapshot)]() mutable {
        const std::shared_ptr<AdapterNowPlaying> self = weak.lock();
        if (!self || self->snapshot_ == snapshot) return;
        self->snapshot_ = std::move(snapshot);
        // A copy, as the callback may be taken away while it runs.
        if (const std::function<void()> onUpdate = self->onUpdate_) onUpdate();
      });
}

}  // namespace talmo
