#include "tests/desktop/web/WebComponentTest.h"

#include <chrono>

namespace talmo::test {

WebComponentTest::WebComponentTest() {
  useBundle(std::filesystem::path(TALMO_PROGRAM).parent_path());
}

WebComponentTest::~WebComponentTest() {
  adapter_ = nullptr;
}

void WebComponentTest::useBundle(const std::filesystem::path& folder) {
  adapter_ = nullptr;
  platform_ = nullptr;
  platform_ = std::make_unique<PlatformOnDesktop>(stage().desktop(), folder);
  adapter_ = AdapterNowPlaying::make();
  adapter_->start();
}

void WebComponentTest::send(std::int32_t command) {
  runOnQueue([command] { AdapterNowPlaying::send(command, std::chrono::seconds(10)); });
}

bool WebComponentTest::runUntilSession(const std::string& title, bool isPlaying) {
  return runUntil([&] {
    const auto& snapshot = session();
    return snapshot && snapshot->bundleID == "com.google.Chrome" && snapshot->title == title &&
           snapshot->isPlaying == isPlaying;
  });
}

std::string WebComponentTest::seen() const {
  const auto& snapshot = session();
  if (!snapshot) return "nothing";
  return snapshot->bundleID + (snapshot->isPlaying ? " plays " : " has paused ") + snapshot->title;
}

}  // namespace talmo::test
