#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/backend/interface/view/AccessibleTree.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// A desktop with assistive technology.
class AccessibilityTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    shared_ = new Shared;
    ::setenv("DBUS_SESSION_BUS_ADDRESS", shared_->bus.address().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", shared_->folder.path().c_str(), 1);
    ::setenv("DISPLAY", shared_->display.name().c_str(), 1);
  }
  static void TearDownTestSuite() { delete shared_; }

  void show(const std::string& state) {
    program_ = std::make_unique<TestProcess>(TestProcess::Start{
        .arguments = {TALMO_PANEL_PROGRAM, state},
        .environment = {{"QT_QPA_PLATFORM", "xcb"}, {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"}}});
    ASSERT_TRUE(waitUntil([this] { return button("Options").has_value(); },
                          std::chrono::seconds(30), std::chrono::milliseconds(50)))
        << program_->output();
  }

  std::vector<AccessibleThing> withRole(const std::string& role) {
    std::vector<AccessibleThing> found;
    for (const AccessibleThing& thing : tree_.things(program_->pid())) {
      if (thing.role == role) found.push_back(thing);
    }
    return found;
  }

  std::optional<AccessibleThing> button(const std::string& name) {
    for (const AccessibleThing& thing : withRole("push button")) {
      if (thing.name == name) return thing;
    }
    return std::nullopt;
  }

  std::vector<std::string> names(const std::string& role) {
    std::vector<std::string> names;
    for (const AccessibleThing& thing : withRole(role)) names.push_back(thing.name);
    return names;
  }

  TestProcess& program() { return *program_; }
  AccessibleTree& tree() { return tree_; }

 private:
  struct Shared {
    PrivateDisplay display;
    TemporaryFolder folder;
    PrivateBus bus{{{"DISPLAY", display.name()}, {"XDG_RUNTIME_DIR", folder.path().string()}}};
  };
  static inline Shared* shared_ = nullptr;

  AccessibleTree tree_;
  std::unique_ptr<TestProcess> program_;
};

TEST_F(AccessibilityTest, ReadsTheRowsWithTheirHintsAndThePinnedOneAsChecked) {
  show("pinned");
  EXPECT_THAT(names("push button"), ElementsAre("Spotify", "VLC", "Apple Music", "Options"));
  const auto spotify = button("Spotify");
  ASSERT_TRUE(spotify);
  EXPECT_EQ(spotify->description, "Pin media keys to Spotify");
  EXPECT_THAT(spotify->states, ElementsAre("focusable"));
  EXPECT_THAT(spotify->path, Contains("PLAYERS"));
  const auto vlc = button("VLC");
  ASSERT_TRUE(vlc);
  EXPECT_EQ(vlc->description,
            "Media keys are pinned to VLC. Click to follow what's playing instead.");
  EXPECT_THAT(vlc->states, ElementsAre("checked", "focusable"));
}

TEST_F(AccessibilityTest, ReadsTheHighlightedRowAsFocused) {
  show("highlighted");
  const auto vlc = button("VLC");
  ASSERT_TRUE(vlc);
  EXPECT_THAT(vlc->states, ElementsAre("checked", "focusable", "focused", "selected"));
  const auto spotify = button("Spotify");
  ASSERT_TRUE(spotify);
  EXPECT_THAT(spotify->states, ElementsAre("focusable"));
}

TEST_F(AccessibilityTest, ReadsTextsHeadingsAndWarnings) {
  show("all-at-once");
  EXPECT_THAT(names("heading"), ElementsAre("PLAYERS"));
  const std::vector<std::string> texts = names("label");
  for (const char* const text :
       {"Midnight in the Harbour", "The Paper Lanterns", "Playing", "Your keys go to YouTube",
        "SoundCloud or YouTube in a browser?", "Spotify can't hear Talmo"}) {
    EXPECT_THAT(texts, Contains(text));
  }
  EXPECT_THAT(withRole("alert"), testing::SizeIs(2));
  EXPECT_TRUE(button("Allow for Google Chrome"));
  EXPECT_TRUE(button("Open Automation settings for Spotify"));
}

TEST_F(AccessibilityTest, ReadsAllOfATextThatIsCut) {
  show("long-title");
  EXPECT_THAT(names("label"),
              Contains("Concerto for two violins, strings and continuo in D minor, BWV 1043"));
}

TEST_F(AccessibilityTest, PressesARow) {
  show("playing");
  ASSERT_TRUE(tree().press(program().pid(), "push button", "VLC"));
  EXPECT_TRUE(waitUntil([this] {
    return program().output().find("pressed vlc\n") != std::string::npos;
  })) << program().output();
}

}  // namespace
}  // namespace talmo::test
