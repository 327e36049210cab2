#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/AppCoordinator.h"
#include "tests/component/WebTest.h"
#include "tests/support/ViewOutline.h"

namespace talmo::test {

/// The whole program with a person in front of its interface.
class PanelWiringTest : public WebTest {
 protected:
  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* vlc = "org.videolan.vlc";

  PanelWiringTest() { browsers().setStream(Script().liveOn()); }

  /// Starts the program with this selection; nothing for a fresh install.
  void start(const std::optional<std::string>& selection = std::nullopt) {
    machine().userDefaults().setString("selectedTargetAppID", selection);
    machine().userDefaults().setBoolean("hasCompletedOnboarding", true);
    coordinator_ = AppCoordinator::make();
    coordinator_->start();
  }

  AppCoordinator& coordinator() { return *coordinator_; }
  SimulatedStatusItem& item() { return *machine().statusBar().items().at(0); }
  SimulatedPanel& panel() { return *machine().panels().panels().at(0); }

  /// Installs a player and starts it.
  ProcessIdentifier launch(const std::string& bundleID, const std::string& name) {
    machine().applications().install({bundleID, name});
    return machine().applications().launch(bundleID);
  }

  bool shows(const std::vector<std::string>& path) {
    return runUntil([this, path] { return part(panel().content(), path) != nullptr; });
  }
  void click(const std::vector<std::string>& path) {
    ASSERT_TRUE(shows(path));
    EXPECT_TRUE(panel().click(*part(panel().content(), path)));
  }

  /// The texts of the card, or the line of the footer, as they are rendered.
  std::vector<std::string> card() { return texts(*part(panel().content(), {"now-playing"})); }
  std::string footer() {
    return texts(*part(panel().content(), {"footer", "texts", "summary"})).front();
  }
  bool runUntilFooter(const std::string& text) {
    return runUntil([this, text] { return footer() == text; });
  }
  bool runUntilCard(const std::string& title) {
    return runUntil([this, title] { return card().front() == title; });
  }

  /// The adapter tells of a track of that owner.
  void stream(const std::string& owner, const std::string& title) {
    machine().childProcesses().write("stream", R"({"payload":{"bundleIdentifier":")" + owner +
                                                   R"(","playing":true,"title":")" + title +
                                                   "\",\"artist\":\"Artist\"}}\n");
  }

  /// Presses a media key.
  void press(std::int32_t code) { machine().eventTap().postMediaKey(code, true); }

 private:
  std::shared_ptr<AppCoordinator> coordinator_;
};

}  // namespace talmo::test
