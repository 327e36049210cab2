#include "tests/desktop/DesktopTest.h"

#include <algorithm>
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
  // The one before has the keys until it has ended.
  talmo_ = nullptr;
  talmo_ = std::make_unique<TalmoProcess>(desktop_, TALMO_PROGRAM);
  return *talmo_;
}

std::string DesktopTest::windowAfterTyping() {
  keys_.tap("z");
  const auto hasIt = [this] {
    return std::ranges::any_of(window_.keys(), [](const RecordedKey& key) {
      return !key.isPress && (key.keysym == "z" || key.keysym == "Z");
    });
  };
  EXPECT_TRUE(waitUntil(hasIt)) << "the window in front did not get what was typed, only: "
                                << window_.transcript();
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
