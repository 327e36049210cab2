#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "platform/Dispatch.h"
#include "platform/MediaRemote.h"
#include "platform/Notifications.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// A record of what is playing that the test writes. At first nothing plays, and all functions and
/// constants are there. Any thread.
class SimulatedMediaRemote : public MediaRemote {
 public:
  static constexpr const char* infoFunction = "MRMediaRemoteGetNowPlayingInfo";
  static constexpr const char* processFunction = "MRMediaRemoteGetNowPlayingApplicationPID";
  static constexpr const char* isPlayingFunction = "MRMediaRemoteGetNowPlayingApplicationIsPlaying";
  static constexpr const char* registerFunction = "MRMediaRemoteRegisterForNowPlayingNotifications";
  static constexpr const char* unregisterFunction =
      "MRMediaRemoteUnregisterForNowPlayingNotifications";

  static constexpr const char* infoConstant = "kMRMediaRemoteNowPlayingInfoDidChangeNotification";
  static constexpr const char* applicationConstant =
      "kMRMediaRemoteNowPlayingApplicationDidChangeNotification";
  static constexpr const char* isPlayingConstant =
      "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification";

  explicit SimulatedMediaRemote(Notifications& notifications);

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

  /// Takes a function out of the framework, or puts it back.
  void setHasFunction(const std::string& name, bool has);
  /// Changes what a constant holds, or takes it out.
  void setStringConstant(const std::string& name, std::optional<std::string> value);

  /// Each posts its notification when that changes something and notifications are asked for.
  void setInfo(std::optional<MediaRemoteInfo> info);
  void setProcess(ProcessIdentifier process);
  void setIsPlaying(bool isPlaying);

  /// How long an answer takes; it tells what was so when it was asked for.
  void setAnswerDelay(Duration delay);

  /// How often the function of that name was called.
  int calls(const std::string& function) const;
  /// Whether notifications are asked for at present.
  bool isRegistered() const;

 private:
  struct State {
    std::optional<MediaRemoteInfo> info;
    ProcessIdentifier process = 0;
    bool isPlaying = false;
    Duration answerDelay = Duration::zero();
    bool isRegistered = false;
  };

  /// Counts a call and gives the state at that time.
  State called(const char* function);
  static void answer(const State& state, const std::shared_ptr<Queue>& queue,
                     std::function<void()> callback);
  template <class Value>
  void set(Value State::* field, Value value, const char* constant);

  Notifications& notifications_;
  mutable Mutex mutex_;
  std::set<std::string, std::less<>> functions_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, std::string, std::less<>> constants_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, int> calls_ TALMO_GUARDED_BY(mutex_);
  State state_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
