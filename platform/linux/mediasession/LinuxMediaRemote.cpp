#include "platform/linux/mediasession/LinuxMediaRemote.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace talmo {
namespace {

constexpr std::array<std::string_view, 5> functions{
    "MRMediaRemoteGetNowPlayingInfo",
    "MRMediaRemoteGetNowPlayingApplicationPID",
    "MRMediaRemoteGetNowPlayingApplicationIsPlaying",
    "MRMediaRemoteRegisterForNowPlayingNotifications",
    "MRMediaRemoteUnregisterForNowPlayingNotifications",
};

// Each constant holds its own name without the "k".
constexpr std::array<std::string_view, 3> constants{
    "kMRMediaRemoteNowPlayingInfoDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationDidChangeNotification",
    "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification",
};

std::string valueOf(std::string_view constant) {
  return std::string(constant.substr(1));
}

/// What is told of the track, but for the time elapsed, which is another one whenever one looks.
auto trackOf(const MprisSession& session) {
  return std::tie(session.trackIdentifier, session.title, session.artist, session.album,
                  session.duration, session.artwork);
}

double speedOf(const MprisSession& session) {
  if (!session.isPlaying) return 0;
  // Who plays does not stand still, whatever its player says.
  return session.rate > 0 ? session.rate : 1;
}

MediaRemoteInfo infoOf(const MprisSession& session) {
  MediaRemoteInfo info;
  const std::string prefix = "kMRMediaRemoteNowPlayingInfo";
  if (!session.title.empty()) info[prefix + "Title"] = session.title;
  if (session.artist) info[prefix + "Artist"] = *session.artist;
  if (session.album) info[prefix + "Album"] = *session.album;
  if (session.artwork) info[prefix + "ArtworkData"] = MediaRemoteData{*session.artwork};
  info[prefix + "PlaybackRate"] = speedOf(session);
  if (session.duration) info[prefix + "Duration"] = *session.duration;
  if (session.elapsedTime) info[prefix + "ElapsedTime"] = *session.elapsedTime;
  return info;
}

}  // namespace

LinuxMediaRemote::LinuxMediaRemote(Notifications& notifications)
    : notifications_(notifications),
      tracker_(std::make_unique<SessionTracker>(
          [this](const Session& before, const Session& after) { tell(before, after); })) {}

bool LinuxMediaRemote::hasFunction(std::string_view name) const {
  tracker_->start();
  return std::ranges::find(functions, name) != functions.end();
}

std::optional<std::string> LinuxMediaRemote::stringConstant(std::string_view name) const {
  if (std::ranges::find(constants, name) == constants.end()) return std::nullopt;
  return valueOf(name);
}

void LinuxMediaRemote::getNowPlayingInfo(
    const std::shared_ptr<Queue>& queue,
    std::function<void(std::optional<MediaRemoteInfo>)> callback) {
  tracker_->ask([queue, callback = std::move(callback)](const Session& session) {
    std::optional<MediaRemoteInfo> info;
    if (session) info = infoOf(*session);
    queue->async([callback, info = std::move(info)] { callback(info); });
  });
}

void LinuxMediaRemote::getNowPlayingApplicationPID(
    const std::shared_ptr<Queue>& queue, std::function<void(ProcessIdentifier)> callback) {
  tracker_->ask([queue, callback = std::move(callback)](const Session& session) {
    const ProcessIdentifier process = session ? session->process : 0;
    queue->async([callback, process] { callback(process); });
  });
}

void LinuxMediaRemote::getNowPlayingApplicationIsPlaying(const std::shared_ptr<Queue>& queue,
                                                         std::function<void(bool)> callback) {
  tracker_->ask([queue, callback = std::move(callback)](const Session& session) {
    const bool isPlaying = session && session->isPlaying;
    queue->async([callback, isPlaying] { callback(isPlaying); });
  });
}

void LinuxMediaRemote::registerForNowPlayingNotifications(const std::shared_ptr<Queue>&) {
  isRegistered_ = true;
}

void LinuxMediaRemote::unregisterForNowPlayingNotifications() {
  isRegistered_ = false;
}

void LinuxMediaRemote::tell(const Session& before, const Session& after) {
  if (!isRegistered_) return;
  const auto ownerOf = [](const Session& session) {
    return session ? std::pair(session->bundleIdentifier, session->process)
                   : std::pair(std::string(), ProcessIdentifier(0));
  };
  const auto rateOf = [](const Session& session) { return session ? speedOf(*session) : 0; };
  const bool hasOther =
      before.has_value() != after.has_value() || ownerOf(before) != ownerOf(after);
  const bool isSameTrack = before && after && trackOf(*before) == trackOf(*after);
  if (hasOther) notifications_.post(valueOf(constants[1]));
  if ((before || after) && (!isSameTrack || rateOf(before) != rateOf(after))) {
    notifications_.post(valueOf(constants[0]));
  }
  if ((rateOf(before) > 0) != (rateOf(after) > 0)) notifications_.post(valueOf(constants[2]));
}

}  // namespace talmo
