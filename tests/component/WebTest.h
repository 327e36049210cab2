#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "tests/component/ComponentTest.h"
#include "tests/component/SimulatedBrowsers.h"

namespace talmo::test {

/// A test of what drives web players: a machine with browsers, and a queue to wait on.
class WebTest : public ComponentTest {
 protected:
  using Kind = SimulatedBrowsers::Kind;
  using Script = SimulatedBrowsers::Script;

  static constexpr const char* safari = "com.apple.Safari";
  static constexpr const char* chrome = "com.google.Chrome";
  static constexpr const char* brave = "com.brave.Browser";
  static constexpr const char* watchPage = "https://www.youtube.com/watch?v=1";
  static constexpr const char* otherWatchPage = "https://www.youtube.com/watch?v=2";
  static constexpr const char* soundCloudPage = "https://soundcloud.com/artist/track";

  SimulatedBrowsers& browsers() { return browsers_; }

  /// Runs `work` on a queue, as what may wait is run, and waits for its end.
  void run(const std::function<void()>& work) {
    std::atomic<bool> isDone = false;
    queue_->async([&] {
      work();
      isDone = true;
    });
    ASSERT_TRUE(runUntil([&] { return isDone.load(); }));
  }

  std::vector<std::string> log() { return machine().log().messages("web-tab"); }

 private:
  SimulatedBrowsers browsers_{machine()};
  const std::shared_ptr<Queue> queue_ =
      machine().dispatch().makeSerialQueue("commands", QualityOfService::unspecified);
};

}  // namespace talmo::test
