#include <string>
#include <utility>

#include "nowplaying/AdapterFiles.h"
#include "nowplaying/AdapterJson.h"
#include "nowplaying/AdapterNowPlaying.h"
#include "nowplaying/LastOwner.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("adapter");

std::shared_ptr<ChildProcess> makeRun(const AdapterFiles& files,
                                      const std::vector<std::string>& arguments) {
  return platform().childProcesses().make(files.run(arguments, ChildOutput::nullDevice));
}

/// What an answer of `get` says; its owner is recorded.
std::optional<AdapterNowPlayingSnapshot> learn(std::string answer) {
  const std::optional<AdapterState> state = AdapterJson::object(std::move(answer));
  if (!state) return std::nullopt;
  std::optional<AdapterNowPlayingSnapshot> snapshot = AdapterNowPlaying::snapshotFrom(*state);
  if (snapshot) LastOwner::record(*snapshot);
  return snapshot;
}

std::optional<AdapterNowPlayingSnapshot> ask(const std::vector<std::string>& arguments) {
  const std::optional<AdapterFiles> files = AdapterFiles::find();
  if (!files) return std::nullopt;
  const std::shared_ptr<ChildProcess> process = makeRun(*files, arguments);
  if (const std::optional<std::string> error = process->launch()) {
    log.info("adapter get failed: %{public}s", *error);
    return std::nullopt;
  }
  std::string answer = process->standardOutput()->readToEnd();
  process->waitUntilExit();
  return learn(std::move(answer));
}

/// What a run wrote by its end; nothing when it could not be started or took too long. Its output
/// is read when it has ended, so it must fit into a pipe.
std::optional<std::string> runSync(const std::vector<std::string>& arguments, Duration timeout) {
  const std::optional<AdapterFiles> files = AdapterFiles::find();
  if (!files) return std::nullopt;
  const std::shared_ptr<ChildProcess> process = makeRun(*files, arguments);
  const std::shared_ptr<Semaphore> ended = platform().dispatch().makeSemaphore(0);
  process->setTerminationHandler([ended](const ChildTermination&) { ended->signal(); });
  if (const std::optional<std::string> error = process->launch()) {
    log.info("adapter sync run failed: %{public}s", *error);
    return std::nullopt;
  }
  if (!ended->wait(timeout)) {
    process->terminate();
    log.info("adapter sync run timed out");
    return std::nullopt;
  }
  return process->standardOutput()->readToEnd();
}

}  // namespace

void AdapterNowPlaying::get(bool noArtwork, Completion completion) {
  Dispatch& dispatch = platform().dispatch();
  dispatch.globalQueue(QualityOfService::userInitiated)
      .async([&dispatch, noArtwork, completion = std::move(completion)] {
        std::vector<std::string> arguments = {"get"};
        if (noArtwork) arguments.emplace_back("--no-artwork");
        dispatch.mainQueue().async(
            [completion, snapshot = ask(arguments)] { completion(snapshot); });
      });
}

std::optional<AdapterNowPlayingSnapshot> AdapterNowPlaying::getSync(Duration timeout) {
  std::optional<std::string> answer = runSync({"get", "--no-artwork"}, timeout);
  if (!answer) return std::nullopt;
  return learn(std::move(*answer));
}

void AdapterNowPlaying::send(std::int32_t commandID, Duration timeout) {
  runSync({"send", std::to_string(commandID)}, timeout);
}

std::optional<AdapterOwner> AdapterNowPlaying::recentOwner(Duration maxAge) {
  return LastOwner::recent(maxAge);
}

}  // namespace talmo
