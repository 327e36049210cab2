#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/support/FakeTrack.h"

struct sd_bus;

namespace talmo::test {

/// A media player on the session bus that plays nothing: it takes the commands of MPRIS, keeps a
/// playback status and a track number, and says what it received. Lives on a thread of its own, so
/// that it answers whatever the test's own thread is doing.
class FakePlayer {
 public:
  enum class Behaviour {
    answers,
    /// Takes nothing in and answers nothing, as a stopped process does.
    hangs,
    /// Records a command and refuses it with an error.
    fails,
    /// Answers; its properties have types that MPRIS does not allow.
    answersWithWrongTypes,
  };

  struct Start {
    /// What follows "org.mpris.MediaPlayer2." in its bus name.
    std::string name;
    Behaviour behaviour = Behaviour::answers;
    std::string playbackStatus = "Playing";
    /// Its own name where this is empty.
    std::string desktopEntry;
    /// Whether the process ends when the bus goes away, so that a program is not left behind.
    bool endsWithBus = false;
    /// Called on the player's thread with each command (its method's name) before it is answered.
    std::function<void(const std::string&)> onCommand;
  };

  /// The name of the error of a player that fails, and its message.
  static constexpr const char* refusalName = "nl.brelm.Talmo.Test.Refused";
  static constexpr const char* refusalMessage = "the fake player refuses";

  /// Takes the name on the bus of DBUS_SESSION_BUS_ADDRESS; from the return on the player is there.
  /// Throws when that is impossible.
  explicit FakePlayer(Start start);
  ~FakePlayer();
  FakePlayer(const FakePlayer&) = delete;
  FakePlayer& operator=(const FakePlayer&) = delete;

  /// From the next message on. A player that hung and goes on takes what waited for it.
  void setBehaviour(Behaviour behaviour);

  /// The commands in order of arrival, by their method names: "PlayPause", "Next", "Previous",
  /// "Play", "Pause", "Stop".
  std::vector<std::string> received() const;

  std::string playbackStatus() const;

  /// Has the player do something else; like every change below it is told to everybody.
  void setPlaybackStatus(const std::string& status);

  /// Has the player say this of its track from now on, whichever its number is.
  void setTrack(FakeTrack track);

  /// Moves to that place of the track, in microseconds.
  void seek(std::int64_t position);

  /// Has the player tell of changes as fast as it can while nothing changes.
  void setFlooding(bool isFlooding);

  /// 1 at the start, one more for each "Next", one less, down to 1, for each "Previous".
  std::int64_t track() const;

 private:
  struct Callbacks;
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  void serve();
  void wake() const;
  /// Sends the signals that are due.
  void signal();
  bool isFlooding() const;
  Behaviour behaviour() const;
  /// Records the command and, unless the player refuses, carries it out.
  bool take(const std::string& command);

  const Start start_;
  std::unique_ptr<sd_bus, CloseBus> bus_;
  int wakeUp_ = -1;
  mutable Mutex mutex_;
  Behaviour behaviour_ TALMO_GUARDED_BY(mutex_);
  std::string playbackStatus_ TALMO_GUARDED_BY(mutex_);
  std::int64_t track_ TALMO_GUARDED_BY(mutex_) = 1;
  std::optional<FakeTrack> shown_ TALMO_GUARDED_BY(mutex_);
  std::int64_t position_ TALMO_GUARDED_BY(mutex_) = 0;
  bool hasChanged_ TALMO_GUARDED_BY(mutex_) = false;
  bool hasSought_ TALMO_GUARDED_BY(mutex_) = false;
  bool isFlooding_ TALMO_GUARDED_BY(mutex_) = false;
  std::vector<std::string> received_ TALMO_GUARDED_BY(mutex_);
  bool stopping_ TALMO_GUARDED_BY(mutex_) = false;
  std::thread thread_;
};

}  // namespace talmo::test
