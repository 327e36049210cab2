#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/MediaRemoteInfo.h"
#include "platform/ProcessIdentifier.h"
#include "platform/Queue.h"

namespace talmo {

/// The system's record of what is playing: a private framework, opened at run time, its functions
/// looked up by name. It may lack any of them, or be absent as a whole.
///
/// Called by `SystemNowPlaying` only, on any thread. A function may be called when `hasFunction`
/// says so of all five; it returns at once and calls back exactly once, on the queue given.
class MediaRemote {
 public:
  virtual ~MediaRemote() = default;

  /// Whether the framework could be opened and exports a function of that name.
  virtual bool hasFunction(std::string_view name) const = 0;

  /// The text that an exported string constant of the framework holds; nothing when there is none
  /// of that name.
  virtual std::optional<std::string> stringConstant(std::string_view name) const = 0;

  /// "MRMediaRemoteGetNowPlayingInfo".
  virtual void getNowPlayingInfo(const std::shared_ptr<Queue>& queue,
                                 std::function<void(std::optional<MediaRemoteInfo>)> callback) = 0;

  /// "MRMediaRemoteGetNowPlayingApplicationPID": 0 or less when nothing is playing.
  virtual void getNowPlayingApplicationPID(const std::shared_ptr<Queue>& queue,
                                           std::function<void(ProcessIdentifier)> callback) = 0;

  /// "MRMediaRemoteGetNowPlayingApplicationIsPlaying".
  virtual void getNowPlayingApplicationIsPlaying(const std::shared_ptr<Queue>& queue,
                                                 std::function<void(bool)> callback) = 0;

  /// "MRMediaRemoteRegisterForNowPlayingNotifications": from now on changes are posted to
  /// `Notifications` under the names that the constants hold.
  virtual void registerForNowPlayingNotifications(const std::shared_ptr<Queue>& queue) = 0;

  /// "MRMediaRemoteUnregisterForNowPlayingNotifications".
  virtual void unregisterForNowPlayingNotifications() = 0;
};

}  // namespace talmo
