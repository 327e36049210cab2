#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/mediasession/SessionTracker.h"
#include "platform/MediaRemote.h"
#include "platform/Notifications.h"

namespace talmo {

/// The media session as the record of what is playing; all functions and constants are there.
///
/// The first question for a function starts the thread that watches the session. An owner that has
/// only played on gives no notice that its information changed.
class LinuxMediaRemote : public MediaRemote {
 public:
  /// `notifications` lives for longer.
  explicit LinuxMediaRemote(Notifications& notifications);

  bool hasFunction(std::string_view name) const override;
  std::optional<std::string> stringConstant(std::string_view name) const override;
  void getNowPlayingInfo(const std::shared_ptr<Queue>& queue,
                         std::function<void(std::optional<MediaRemoteInfo>)> callback) override;
  void getNowPlayingApplicationPID(const std::shared_ptr<Queue>& queue,
                                   std::function<void(ProcessIdentifier)> callback) override;
  void getNowPlayingApplicationIsPlaying(const std::shared_ptr<Queue>& queue,
                                         std::function<void(bool)> callback) override;
  void registerForNowPlayingNotifications(const std::shared_ptr<Queue>& queue) override;
  void unregisterForNowPlayingNotifications() override;

 private:
  using Session = SessionTracker::Session;

  void tell(const Session& before, const Session& after);

  Notifications& notifications_;
  std::atomic<bool> isRegistered_ = false;
  // Last, so that its thread ends before what it uses.
  const std::unique_ptr<SessionTracker> tracker_;
};

}  // namespace talmo
