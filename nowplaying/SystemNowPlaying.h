#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "nowplaying/SystemNowPlayingInfo.h"
#include "platform/MediaRemote.h"
#include "platform/Notifications.h"
#include "platform/Queue.h"

namespace talmo {

/// The system's own record of what is playing, read through a framework that may be missing.
class SystemNowPlaying : public std::enable_shared_from_this<SystemNowPlaying> {
 public:
  using Completion = std::function<void(std::optional<SystemNowPlayingInfo>)>;

  /// The one object, made on first use and kept; none where the system lacks the framework or one
  /// of its functions. Any thread.
  static std::shared_ptr<SystemNowPlaying> shared();

  SystemNowPlaying(const SystemNowPlaying&) = delete;
  SystemNowPlaying& operator=(const SystemNowPlaying&) = delete;

  /// Calls `onChange` on the main thread when what is playing may have changed; does nothing while
  /// it observes already. Main thread.
  void startObserving(const std::function<void()>& onChange);

  /// Ends the calls. Main thread.
  void stopObserving();

  /// Reads the record; `completion` is called once, on the main thread. Any thread.
  void read(Completion completion);

 private:
  explicit SystemNowPlaying(MediaRemote& mediaRemote);

  void readInfo(std::optional<std::string> bundleID, Completion completion);
  void complete(SystemNowPlayingInfo info, const MediaRemoteInfo& dictionary,
                Completion completion);

  MediaRemote& mediaRemote_;
  const std::shared_ptr<Queue> callbackQueue_;
  /// The names of the changes, as far as the framework has them.
  std::vector<std::string> notificationNames_;
  // Empty when not observing. Main thread.
  std::vector<Notifications::Token> observerTokens_;
};

}  // namespace talmo
