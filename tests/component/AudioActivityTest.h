#pragma once

#include <memory>
#include <set>
#include <string>

#include "nowplaying/AudioActivity.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class AudioActivityTest : public ComponentTest {
 protected:
  using Set = std::set<std::string>;

  SimulatedAudioObjects& audio() { return machine().audioObjects(); }
  AudioActivity& activity() { return *activity_; }
  void endActivity() { activity_.reset(); }

  bool waitFor(const Set& expected) {
    return runUntil([&] { return activity_->activeBundleIDs().get() == expected; });
  }

  /// How often the list was read.
  int polls() { return audio().reads(AudioObjects::systemObject, AudioObjects::processObjectList); }

  /// Has the current state polled once more and published.
  void pollOnce() {
    const auto marker = audio().add({.bundleID = "marker" + std::to_string(++markers_)});
    activity_->startPolling();
    EXPECT_TRUE(runUntil([&] {
      return activity_->activeBundleIDs().get().contains("marker" + std::to_string(markers_));
    }));
    audio().remove(marker);
  }

  /// What is active, without what `pollOnce` put there.
  Set active() {
    Set found = activity_->activeBundleIDs().get();
    std::erase_if(found, [](const std::string& one) { return one.starts_with("marker"); });
    return found;
  }

 private:
  int markers_ = 0;
  std::shared_ptr<AudioActivity> activity_ = AudioActivity::make();
};

}  // namespace talmo::test
