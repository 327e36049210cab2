#pragma once

#include "platform/MediaRemote.h"

namespace talmo {

/// The system's record by `MediaRemoteFramework`, which is opened with the first question for a
/// function or constant. The queues are those of `MacDispatch`. Notices are posted to the default
/// notification centre by the framework itself.
class MacMediaRemote : public MediaRemote {
 public:
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
};

}  // namespace talmo
