#include "tests/desktop/web/WebTest.h"

#include <filesystem>

namespace talmo::test {

std::unique_ptr<WebStage> WebTest::stage_;

void WebTest::SetUpTestSuite() {
  stage_ = std::make_unique<WebStage>();
}

void WebTest::TearDownTestSuite() {
  stage_ = nullptr;
}

WebTest::WebTest() {
  stage().clear();
  platform_ = std::make_unique<PlatformOnDesktop>(
      stage().desktop(), std::filesystem::path(TALMO_PROGRAM).parent_path());
  adapter_ = AdapterNowPlaying::make();
  adapter_->start();
}

WebTest::~WebTest() {
  adapter_ = nullptr;
}

bool WebTest::runUntilSession(const std::string& title, bool isPlaying) {
  return runUntil([&] {
    const auto& snapshot = session();
    return snapshot && snapshot->bundleID == "com.google.Chrome" && snapshot->title == title &&
           snapshot->isPlaying == isPlaying;
  });
}

std::string WebTest::seen() const {
  const auto& snapshot = session();
  if (!snapshot) return "nothing";
  return snapshot->bundleID + (snapshot->isPlaying ? " plays " : " has paused ") + snapshot->title;
}

}  // namespace talmo::test
