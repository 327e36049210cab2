#include <map>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/LinuxWording.h"
#include "platform/simulated/SimulatedWording.h"
#include "tests/backend/interface/view/OnboardingStates.h"
#include "tests/backend/interface/view/PanelStates.h"

namespace talmo::test {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

/// Each sentence that names the Mac, and how it is said on Linux.
const std::map<std::string, std::string> sentences{
    {"macOS makes you flip this one yourself.", "Your desktop makes you flip this one yourself."},
    {"Open System Settings", "Open Desktop Settings"},
    {"Can't find it? Reopen System Settings", "Can't find it? Reopen Desktop Settings"},
    {"macOS will ask once to let Talmo talk to ",
     "Your desktop will ask once to let Talmo talk to "},
    {"macOS asks once per browser.", "Your desktop asks once per browser."},
    {"Media keys: macOS default", "Media keys: desktop default"},
};

void expectNoMac(const std::string& state, const View& view) {
  for (const std::string& text : {view.text, view.accessibilityLabel, view.accessibilityHint}) {
    EXPECT_THAT(text, Not(AnyOf(HasSubstr("macOS"), HasSubstr("Mac "), HasSubstr("System "))))
        << state;
  }
  for (const View& child : view.children) expectNoMac(state, child);
}

TEST(LinuxWording, NamesTheDesktopWhereTheMacIsNamed) {
  for (const auto& [mac, linux] : sentences) {
    EXPECT_EQ(LinuxWording().of(mac), linux);
    EXPECT_EQ(SimulatedWording().of(mac), mac);
  }
}

TEST(LinuxWording, LeavesEverythingElseAsItIs) {
  for (const char* text : {"Almost.", "", "macOS", "Open System Settings "}) {
    EXPECT_EQ(LinuxWording().of(text), text);
  }
}

TEST(LinuxWording, LeavesNoMacInAnythingThatIsShown) {
  for (const auto& [state, view] : panelStates()) expectNoMac(state, view);
  for (const auto& [state, view] : onboardingStates()) expectNoMac(state, view);
}

}  // namespace
}  // namespace talmo::test
