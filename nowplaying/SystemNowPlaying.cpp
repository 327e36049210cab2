#include "nowplaying/SystemNowPlaying.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Platform.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {
namespace {

constexpr std::array<std::string_view, 5> functions = {
    "MRMediaRemoteGetNowPlayingInfo",
    "MRMediaRemoteGetNowPlayingApplicationPID",
    "MRMediaRemoteGetNowPlayingApplicationIsPlaying",
    "MRMediaRemoteRegisterForNowPlayingNotifications",
    "MRMediaRemoteUnregisterForNowPlayingNotifications",
};

constexpr std::array<std::string_view, 3> notifications = {
    "kMRMediaRemoteNowPlayingInfoDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification",
};

constexpr const char* titleKey = "kMRMediaRemoteNowPlayingInfoTitle";
constexpr const char* artistKey = "kMRMediaRemoteNowPlayingInfoArtist";
constexpr const char* artworkKey = "kMRMediaRemoteNowPlayingInfoArtworkData";
constexpr const char* playbackRateKey = "kMRMediaRemoteNowPlayingInfoPlaybackRate";

struct State {
  Mutex lock;
  bool isLoaded TALMO_GUARDED_BY(lock) = false;
  std::shared_ptr<SystemNowPlaying> shared TALMO_GUARDED_BY(lock);
};

/// The value of that key when it is of that type.
template <class Value>
const Value* find(const MediaRemoteInfo& dictionary, const char* key) {
  const auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : std::get_if<Value>(&found->second);
}

void completeOnMainThread(SystemNowPlaying::Completion completion,
                          std::optional<SystemNowPlayingInfo> info) {
  platform().dispatch().mainQueue().async(
      [completion = std::move(completion), info = std::move(info)] { completion(info); });
}

}  // namespace

std::shared_ptr<SystemNowPlaying> SystemNowPlaying::shared() {
  auto& state = platform().states().of<State>();
  const MutexLock lock(state.lock);
  if (!state.isLoaded) {
    state.isLoaded = true;
    MediaRemote& mediaRemote = platform().mediaRemote();
    if (std::ranges::all_of(functions, [&mediaRemote](std::string_view name) {
          return mediaRemote.hasFunction(name);
        })) {
      state.shared.reset(new SystemNowPlaying(mediaRemote));
    }
  }
  return state.shared;
}

SystemNowPlaying::SystemNowPlaying(MediaRemote& mediaRemote)
    : mediaRemote_(mediaRemote),
      callbackQueue_(platform().dispatch().makeSerialQueue("nl.brelm.talmo.system-now-playing",
                                                           QualityOfService::unspecified)) {
  for (const std::string_view constant : notifications) {
    if (std::optional<std::string> name = mediaRemote_.stringConstant(constant)) {
      notificationNames_.push_back(std::move(*name));
    }
  }
}

void SystemNowPlaying::startObserving(const std::function<void()>& onChange) {
  if (!observerTokens_.empty()) return;
  mediaRemote_.registerForNowPlayingNotifications(callbackQueue_);
  for (const std::string& name : notificationNames_) {
    observerTokens_.push_back(platform().notifications().addObserver(name, onChange));
  }
}

void SystemNowPlaying::stopObserving() {
  for (const Notifications::Token token : observerTokens_) {
    platform().notifications().removeObserver(token);
  }
  observerTokens_.clear();
  mediaRemote_.unregisterForNowPlayingNotifications();
}

void SystemNowPlaying::read(Completion completion) {
  mediaRemote_.getNowPlayingApplicationPID(
      callbackQueue_, [weak = weak_from_this(),
                       completion = std::move(completion)](ProcessIdentifier process) mutable {
        const std::shared_ptr<SystemNowPlaying> self = weak.lock();
        if (!self) return;
        std::optional<std::string> bundleID;
        if (process > 0) {
          if (auto application = platform().workspace().runningApplication(process)) {
            bundleID = std::move(application->bundleID);
          }
        }
        self->readInfo(std::move(bundleID), std::move(completion));
      });
}

void SystemNowPlaying::readInfo(std::optional<std::string> bundleID, Completion completion) {
  mediaRemote_.getNowPlayingInfo(
      callbackQueue_,
      [weak = weak_from_this(), bundleID = std::move(bundleID),
       completion = std::move(completion)](std::optional<MediaRemoteInfo> dictionary) mutable {
        const std::shared_ptr<SystemNowPlaying> self = weak.lock();
        if (!self) return;
        const auto* title = dictionary ? find<std::string>(*dictionary, titleKey) : nullptr;
        if (title == nullptr || title->empty()) {
          completeOnMainThread(std::move(completion), std::nullopt);
          return;
        }
        self->complete({.bundleID = std::move(bundleID), .title = *title}, *dictionary,
                       std::move(completion));
      });
}

void SystemNowPlaying::complete(SystemNowPlayingInfo info, const MediaRemoteInfo& dictionary,
                                Completion completion) {
  if (const auto* artist = find<std::string>(dictionary, artistKey)) info.artist = *artist;
  if (const auto* artwork = find<MediaRemoteData>(dictionary, artworkKey)) {
    info.artwork = platform().imageDecoder().decode(artwork->bytes);
  }
  if (const auto* rate = find<double>(dictionary, playbackRateKey)) {
    info.isPlaying = *rate > 0.0;
    completeOnMainThread(std::move(completion), std::move(info));
    return;
  }
  mediaRemote_.getNowPlayingApplicationIsPlaying(
      callbackQueue_, [weak = weak_from_this(), info = std::move(info),
                       completion = std::move(completion)](bool isPlaying) mutable {
        if (weak.expired()) return;
        info.isPlaying = isPlaying;
        completeOnMainThread(std::move(completion), std::move(info));
      });
}

}  // namespace talmo
