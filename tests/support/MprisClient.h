#pragma once

#include <memory>
#include <optional>
#include <string>

struct sd_bus;

namespace talmo::test {

/// Asks one media player on a session bus what it is doing, as a person would look at its window.
class MprisClient {
 public:
  /// `player` is the part of the bus name after "org.mpris.MediaPlayer2.". Throws without a bus.
  MprisClient(const std::string& busAddress, std::string player);
  ~MprisClient();
  MprisClient(const MprisClient&) = delete;
  MprisClient& operator=(const MprisClient&) = delete;

  /// "Playing", "Paused" or "Stopped"; empty while the player is not there.
  std::string playbackStatus();

  /// The file name of the current track without its folder; empty when there is none.
  std::string track();

  /// A text about the current track, "xesam:title" for one, the first of several; empty when there
  /// is none.
  std::string metadata(const std::string& key);

  /// Calls a method of the player without arguments, "Pause" for one. Whether it answered.
  bool call(const char* method);

 private:
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  std::unique_ptr<sd_bus, CloseBus> bus_;
  std::string name_;
};

}  // namespace talmo::test
