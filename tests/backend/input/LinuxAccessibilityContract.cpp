#include <map>
#include <memory>
#include <stdlib.h>
#include <string>
#include <vector>

#include "platform/linux/input/LinuxAccessibility.h"
#include "tests/contract/AccessibilityContract.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/RivalClient.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

/// A real X server; processes are windows that say whose they are.
class LinuxAccessibilityWorld : public AccessibilityWorld {
 public:
  LinuxAccessibilityWorld() {
    ::setenv("DISPLAY", display_.name().c_str(), 1);
    connection_ = XConnection::open();
  }
  ~LinuxAccessibilityWorld() override { ::unsetenv("DISPLAY"); }

  Accessibility& accessibility() override { return accessibility_; }

  void setTrusted(bool trusted) override {
    if (trusted) {
      rival_.ungrab(next);
    } else {
      ASSERT_TRUE(rival_.grab(next));
    }
  }

  ProcessIdentifier startApplication() override { return ++lastProcess_; }

  void openWindow(ProcessIdentifier process, const std::string& title) override {
    windows_[process].push_back(std::make_unique<FocusWindow>(
        display_.name(), FocusWindow::Options{.title = title, .pid = process}));
  }

  void retitle(ProcessIdentifier process, const std::string& title) override {
    xcb_change_property(connection_->get(), XCB_PROP_MODE_REPLACE,
                        windows_.at(process).front()->id(), connection_->atom("_NET_WM_NAME"),
                        connection_->atom("UTF8_STRING"), 8,
                        static_cast<std::uint32_t>(title.size()), title.data());
    settle();
  }

  void closeWindows(ProcessIdentifier process) override {
    // The server ends a window some time after its program has let go of it.
    for (const auto& window : windows_[process]) {
      xcb_unmap_window(connection_->get(), window->id());
      xcb_delete_property(connection_->get(), window->id(), connection_->atom("_NET_WM_PID"));
    }
    settle();
    windows_.erase(process);
  }

 private:
  /// Waits until the server has done everything so far.
  void settle() { connection_->children(connection_->root()); }

  // The key for the next track, in the map that the server starts with.
  static constexpr std::uint8_t next = 171;

  PrivateDisplay display_;
  const TestPlatform platform_;
  RivalClient rival_{display_.name()};
  std::unique_ptr<XConnection> connection_;
  LinuxEventTap eventTap_;
  LinuxAccessibility accessibility_{eventTap_};
  ProcessIdentifier lastProcess_ = 4000;
  std::map<ProcessIdentifier, std::vector<std::unique_ptr<FocusWindow>>> windows_;
};

TEST(LinuxAccessibility, WithoutADisplayThereAreNoWindows) {
  ::unsetenv("DISPLAY");
  LinuxEventTap eventTap;
  EXPECT_TRUE(LinuxAccessibility(eventTap).windowTitles(4001).empty());
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Linux, AccessibilityContract, testing::Values([] {
                           return std::make_unique<LinuxAccessibilityWorld>();
                         }));

}  // namespace talmo::test
