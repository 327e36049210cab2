#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "nowplaying/NowPlaying.h"
#include "tests/component/WebTest.h"

namespace talmo::test {

class NowPlayingTest : public WebTest {
 protected:
  using Reply = SimulatedNetwork::Reply;
  using Track = SimulatedApplications::Track;

  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* music = "com.apple.Music";
  static constexpr const char* tidal = "com.tidal.desktop";
  static constexpr const char* vlc = "org.videolan.vlc";

  /// The adapter's stream is silent and the machine is not connected.
  NowPlayingTest();
  ~NowPlayingTest() override;

  NowPlaying& nowPlaying() { return *nowPlaying_; }
  /// Lets go of the object under test.
  void drop() { nowPlaying_.reset(); }

  /// Chooses a target of the registry by its id.
  void setTarget(const std::string& id);
  void setNoTarget() { target_.reset(); }

  /// Starts an application; returns its process.
  ProcessIdentifier launch(const std::string& bundleID);

  /// Starts polling, with the adapter's stream up.
  void start();
  /// Starts polling and waits for the end of the warm-up.
  void startWarm();

  /// The adapter tells of a track of that owner; `more` are further fields.
  void stream(const std::string& owner, const std::string& title, const std::string& more = "");
  /// The adapter tells that nobody owns the session.
  void streamNothing();

  /// The system has this to tell: the owner's process, and the track without an artist.
  void setSystem(ProcessIdentifier owner, const std::string& title, bool isPlaying = true);

  /// Lets time pass, and the main queue run.
  void pass(Duration time);

  /// Has the object poll now.
  void poke();
  /// Has it poll, and waits until the player was asked for its window's titles by that.
  void pokeTidal();

  /// Records consent for the application, as a query has found it.
  void consent(const std::string& bundleID, std::int32_t status = SimulatedAppleEvents::granted);

  /// From now on the catalogue knows "TITLE" by "Artist" for each of these titles, with an artwork
  /// of the width given, after the time given. Anything else is not found.
  struct Entry {
    std::string title;
    int width = 0;
    Duration delay = std::chrono::milliseconds(1);
  };
  void setCatalogue(const std::vector<Entry>& entries);
  /// Where the catalogue has the artwork of a title.
  static std::string artworkURL(const std::string& title);
  static std::string searchURL(const std::string& title);

  std::vector<std::string> requests() { return machine().network().requests(); }

  /// What is shown, in short: "idle", "[VLC]", "Song" while it plays, "Song (paused)", and behind a
  /// track's title the width of its artwork: "Song 4".
  std::string shown() const { return text(nowPlaying_->state().get()); }
  static std::string text(const NowPlayingState& state);
  bool runUntilShown(const std::string& text) {
    return runUntil([this, text] { return shown() == text; });
  }

  /// Everything that was shown so far, in order.
  const std::vector<std::string>& history() const { return history_; }
  /// The tracks among it. What the adapter tells may come after the first poll, or before.
  std::vector<std::string> tracks() const;

  std::vector<std::string> log() { return machine().log().messages("now-playing"); }
  bool logs(const std::string& line);

  static std::string artwork(int width);

 private:
  std::optional<TargetApp> target_;
  std::shared_ptr<NowPlaying> nowPlaying_;
  std::vector<std::string> history_;
};

}  // namespace talmo::test
