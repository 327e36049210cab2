#include "tests/desktop/DesktopTest.h"

#include <fstream>

#include "tests/support/WaitUntil.h"

namespace talmo::test {

DesktopTest::DesktopTest() : window_(desktop_.displayName()), keys_(desktop_.displayName()) {
  window_.focus();
}

TalmoProcess& DesktopTest::startTalmo(const std::optional<std::string>& selection) {
  TalmoProcess::select(desktop_, selection);
  return startTalmo();
}

TalmoProcess& DesktopTest::startTalmo() {
  talmo_ = std::make_unique<TalmoProcess>(desktop_, TALMO_PROGRAM);
  return *talmo_;
}

std::string DesktopTest::windowAfterTyping() {
  const std::size_t before = window_.keys().size();
  const auto releases = [this, before] {
    std::size_t count = 0;
    const std::vector<RecordedKey> keys = window_.keys();
    for (std::size_t i = before; i < keys.size(); ++i) {
      if (!keys[i].isPress && (keys[i].keysym == "a" || keys[i].keysym == "A")) ++count;
    }
    return count;
  };
  keys_.tap("a");
  EXPECT_TRUE(waitUntil([&] { return releases() > 0; }))
      << "the window in front did not get what was typed, only: " << window_.transcript();
  std::string transcript = window_.transcript();
  window_.clear();
  return transcript;
}

void DesktopTest::install(const std::string& name, const std::vector<std::string>& command) const {
  const std::filesystem::path folder = desktop_.dataFolder() / "applications";
  std::filesystem::create_directories(folder);
  std::ofstream entry(folder / (name + ".desktop"));
  entry << "[Desktop Entry]\nType=Application\nName=" << name << "\nExec=";
  for (const std::string& argument : command) entry << '"' << argument << "\" ";
  entry << '\n';
}

}  // namespace talmo::test
