#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/KeyboardEvent.h"
#include "platform/RunningApplication.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The applications of the simulated machine: what is installed, what runs, and what each running
/// one was sent. The workspace, the Apple events and the key events all look here. Any thread.
class SimulatedApplications {
 public:
  /// How a running application takes Apple events.
  enum class Manner { answers, fails, neverAnswers };

  struct Installed {
    std::string bundleID;
    std::string name;
    std::optional<Date> lastUsed = std::nullopt;
    /// Whether its dictionary has the player commands.
    bool isScriptable = true;
    bool hasIcon = true;
  };

  /// What a running player tells of its current track.
  struct Track {
    std::optional<std::string> name = std::nullopt;
    std::optional<std::string> artist = std::nullopt;
    std::optional<std::string> artworkUrl = std::nullopt;
    /// The data of its one artwork.
    std::optional<Image> artwork = std::nullopt;
    /// The properties of tracks and players that the player's dictionary lacks.
    std::set<std::string, std::less<>> unsupported;
  };

  void install(const Installed& application);
  void uninstall(const std::string& bundleID);
  std::optional<Installed> installed(const std::string& bundleID) const;

  /// Starts an instance, of an installed application or of one that lies anywhere else.
  ProcessIdentifier launch(const std::string& bundleID);
  void quit(ProcessIdentifier process);
  /// Oldest first.
  std::vector<RunningApplication> running(const std::string& bundleID) const;

  std::optional<RunningApplication> withProcess(ProcessIdentifier process) const;

  void setManner(const std::string& bundleID, Manner manner);
  Manner manner(const std::string& bundleID) const;

  /// The current track of a player; at first there is none.
  void setTrack(const std::string& bundleID, const std::optional<Track>& track);
  std::optional<Track> track(const std::string& bundleID) const;

  /// The four-character code of a player's state; stopped at first.
  void setPlayerState(const std::string& bundleID, std::uint32_t state);
  std::uint32_t playerState(const std::string& bundleID) const;

  /// The titles of the windows of a process, front-most first; at first it has no window.
  void setWindowTitles(ProcessIdentifier process, const std::vector<std::string>& titles);
  /// Empty for a process that is not there.
  std::vector<std::string> windowTitles(ProcessIdentifier process) const;

  void setFrontmost(const std::optional<std::string>& bundleID);
  std::optional<std::string> frontmost() const;

  /// The Apple-event commands that reached an application, in order.
  std::vector<std::string> commands(const std::string& bundleID) const;
  void recordCommand(const std::string& bundleID, std::string selector);

  /// The keyboard events that reached a process, in order.
  std::vector<KeyboardEvent> keyboardEvents(ProcessIdentifier process) const;
  /// A process that is not there gets nothing.
  void recordKeyboardEvent(ProcessIdentifier process, const KeyboardEvent& event);

 private:
  mutable Mutex mutex_;
  std::map<std::string, Installed> installed_ TALMO_GUARDED_BY(mutex_);
  std::vector<RunningApplication> running_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, Manner> manners_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, Track> tracks_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, std::uint32_t> playerStates_ TALMO_GUARDED_BY(mutex_);
  std::map<ProcessIdentifier, std::vector<std::string>> windowTitles_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, std::vector<std::string>> commands_ TALMO_GUARDED_BY(mutex_);
  std::map<ProcessIdentifier, std::vector<KeyboardEvent>> keyboardEvents_ TALMO_GUARDED_BY(mutex_);
  std::optional<std::string> frontmost_ TALMO_GUARDED_BY(mutex_);
  ProcessIdentifier nextProcess_ TALMO_GUARDED_BY(mutex_) = 100;
};

}  // namespace talmo
