#pragma once

#include <memory>
#include <set>
#include <string>

#include "nowplaying/AudioActivityHold.h"
#include "platform/Queue.h"
#include "platform/Timer.h"
#include "support/Published.h"

namespace talmo {

/// Which applications are producing sound right now. While it polls, it reads the audio system's
/// process objects every two seconds on a queue of its own; everything else, destruction too,
/// belongs to the main thread. An audio system that fails is logged and counts as silent for that
/// poll.
class AudioActivity : public std::enable_shared_from_this<AudioActivity> {
 public:
  static std::shared_ptr<AudioActivity> make();

  ~AudioActivity();
  AudioActivity(const AudioActivity&) = delete;
  AudioActivity& operator=(const AudioActivity&) = delete;

  /// Polls now and then every two seconds; begins anew when it polls already.
  void startPolling();

  void stopPolling();

  /// The bundle identifiers of the applications that sound, or did until a few seconds ago.
  const Published<std::set<std::string>>& activeBundleIDs() const { return activeBundleIDs_; }
  Published<std::set<std::string>>& activeBundleIDs() { return activeBundleIDs_; }

 private:
  AudioActivity();

  void poll();
  void publish(const std::set<std::string>& observed);

  Published<std::set<std::string>> activeBundleIDs_;
  const std::shared_ptr<Queue> queue_;
  std::shared_ptr<Timer> timer_;
  AudioActivityHold hold_;
};

}  // namespace talmo
