#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/simulated/SimulatedChildScript.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AdapterNowPlayingTest : public ComponentTest {
 protected:
  using Script = SimulatedChildScript;
  using Lines = std::vector<std::string>;

  /// Every run of the adapter from now on follows `script`.
  void setAdapter(const Script& script) {
    machine().childProcesses().setPrograms(
        [script](const ChildProcessParameters&) { return script; });
  }

  /// An object whose stream follows `script`.
  std::shared_ptr<AdapterNowPlaying> started(const Script& script) {
    setAdapter(script);
    std::shared_ptr<AdapterNowPlaying> adapter = AdapterNowPlaying::make();
    adapter->setOnUpdate([this] { ++updates_; });
    adapter->start();
    return adapter;
  }

  /// Runs until the object was updated that often.
  bool runUntilUpdates(int count) {
    return runUntil([this, count] { return updates_ >= count; });
  }

  /// Runs until that many runs of the adapter have ended.
  bool runUntilEnded(std::size_t count) {
    return runUntil([this, count] { return ended() >= count; });
  }
  std::size_t ended();

  /// Waits on a queue, as the class asks of those who wait.
  std::optional<AdapterNowPlayingSnapshot> getSync();

  Lines log() { return machine().log().messages("adapter"); }
  int updates() const { return updates_; }

  /// A stream line with a track of that title.
  static std::string line(const std::string& title, const std::string& more = "");

 private:
  int updates_ = 0;
};

}  // namespace talmo::test
