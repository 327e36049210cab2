#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "panel/PanelController.h"
#include "tests/component/WebTest.h"
#include "tests/support/ViewOutline.h"

namespace talmo::test {

/// A machine with a panel that hangs from a status item, and a person in front of it.
class PanelTest : public WebTest {
 protected:
  using Selection = std::optional<std::string>;

  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* music = "com.apple.Music";
  static constexpr const char* vlc = "org.videolan.vlc";

  /// The adapter's stream is up and silent.
  PanelTest();
  ~PanelTest() override;

  PanelController& controller() { return *controller_; }
  const PanelViewModel& model() { return controller_->viewModel(); }
  void drop() { controller_.reset(); }

  SimulatedStatusItem& item() { return *machine().statusBar().items().at(0); }
  SimulatedPanel& panel() { return *machine().panels().panels().at(0); }
  SimulatedScreen& screen() { return machine().statusBar().screen(); }

  /// Installs native players and opens the panel; it lists them when this returns.
  void openWith(const std::vector<std::string>& bundleIDs);
  /// Opens the panel.
  void open();

  /// Waits until the panel shows a part, or does not.
  bool shows(const std::vector<std::string>& path);
  bool hides(const std::vector<std::string>& path);
  /// Waits until the panel shows exactly these rows.
  bool lists(const std::vector<std::string>& ids);
  /// Clicks a button of the panel.
  void click(const std::vector<std::string>& path);
  /// Lets everything be rendered that has changed so far.
  void render();

  /// A click somewhere else: in another window of the program, or in another application.
  bool clickWindow(WindowIdentifier window,
                   InterfaceEvent::Type type = InterfaceEvent::Type::leftMouseDown);
  void clickElsewhere(InterfaceEvent::Type type = InterfaceEvent::Type::leftMouseDown);

  /// The consent of an application, as the system has it.
  void setConsent(const std::string& bundleID, std::int32_t status);
  /// How often the system was asked for the consent of an application, without a prompt.
  int queries(const std::string& bundleID);

  /// Lets time pass, and the main queue run.
  void pass(Duration time);

  /// What was chosen so far, in order.
  const std::vector<Selection>& selections() const { return selections_; }

 private:
  const std::unique_ptr<StatusItem> statusItem_;
  std::vector<Selection> selections_;
  std::shared_ptr<PanelController> controller_;
};

// A suite for each side of it.
class PanelControllerTest : public PanelTest {};
class PanelKeysTest : public PanelTest {};
class PanelOffersTest : public PanelTest {};

}  // namespace talmo::test
