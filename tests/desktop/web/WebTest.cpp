#include "tests/desktop/web/WebTest.h"

namespace talmo::test {

std::unique_ptr<WebStage> WebTest::stage_;

void WebTest::SetUpTestSuite() {
  stage_ = std::make_unique<WebStage>();
}

void WebTest::TearDownTestSuite() {
  stage_ = nullptr;
}

bool WebTest::runUntilSession(const std::string& title, bool isPlaying) {
  return runUntil([&] {
    const auto& snapshot = stage().adapter().snapshot();
    return snapshot && snapshot->bundleID == "com.google.Chrome" && snapshot->title == title &&
           snapshot->isPlaying == isPlaying;
  });
}

std::string WebTest::seen() {
  const auto& snapshot = stage().adapter().snapshot();
  if (!snapshot) return "nothing";
  return snapshot->bundleID + (snapshot->isPlaying ? " plays " : " has paused ") + snapshot->title;
}

}  // namespace talmo::test
