// The steps of the start in their order, as the services see them.

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppCoordinator.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;

using Notes = std::vector<std::string>;

class NotedAccessibility : public SimulatedAccessibility {
 public:
  NotedAccessibility(const SimulatedApplications& applications, Notes& notes)
      : SimulatedAccessibility(applications), notes_(notes) {}
  bool isProcessTrusted() override {
    notes_.emplace_back("trust?");
    return SimulatedAccessibility::isProcessTrusted();
  }
  bool isProcessTrustedWithPrompt(bool prompt) override {
    notes_.emplace_back("prompt");
    return SimulatedAccessibility::isProcessTrustedWithPrompt(prompt);
  }

 private:
  Notes& notes_;
};

class NotedBundle : public SimulatedBundle {
 public:
  explicit NotedBundle(Notes& notes) : notes_(notes) {}
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& extension) const override {
    notes_.push_back("look for " + name + "." + extension);
    return SimulatedBundle::resourcePath(name, extension);
  }
  std::optional<std::string> objectForInfoDictionaryKey(const std::string& key) const override {
    notes_.push_back("look for " + key);
    return SimulatedBundle::objectForInfoDictionaryKey(key);
  }

 private:
  Notes& notes_;
};

class NotedNotifications : public MainQueueNotifications {
 public:
  NotedNotifications(Dispatch& dispatch, Notes& notes)
      : MainQueueNotifications(dispatch), notes_(notes) {}
  Token addObserver(const std::string& name, std::function<void()> block) override {
    notes_.push_back("observe " + name);
    return MainQueueNotifications::addObserver(name, std::move(block));
  }

 private:
  Notes& notes_;
};

class NotedEventTap : public SimulatedEventTap {
 public:
  NotedEventTap(Dispatch& dispatch, Notes& notes) : SimulatedEventTap(dispatch), notes_(notes) {}
  std::shared_ptr<EventTapPort> create(const EventTapParameters& parameters) override {
    notes_.emplace_back("tap");
    return SimulatedEventTap::create(parameters);
  }

 private:
  Notes& notes_;
};

class NotedWindows : public SimulatedWindows {
 public:
  NotedWindows(const SimulatedApplication& application, Notes& notes)
      : SimulatedWindows(application), notes_(notes) {}
  std::unique_ptr<Window> makeWindow(const WindowParameters& parameters) override {
    notes_.emplace_back("window");
    return SimulatedWindows::makeWindow(parameters);
  }

 private:
  Notes& notes_;
};

class NotedApplication : public SimulatedApplication {
 public:
  NotedApplication(Dispatch& dispatch, Notes& notes)
      : SimulatedApplication(dispatch), notes_(notes) {}
  void activate() override {
    notes_.emplace_back("front");
    SimulatedApplication::activate();
  }

 private:
  Notes& notes_;
};

/// The platform of the test, whose log is noted down, too.
class NotedPlatform : public TestPlatform {
 public:
  NotedPlatform(const Services& services, Notes& notes) : TestPlatform(services), notes_(notes) {}
  SimulatedLog& log() override { return log_; }

 private:
  class NotedLog : public SimulatedLog {
   public:
    explicit NotedLog(Notes& notes) : notes_(notes) {}
    void write(LogLevel level, std::string_view subsystem, std::string_view category,
               std::string_view message) override {
      notes_.push_back("log " + std::string(message));
      SimulatedLog::write(level, subsystem, category, message);
    }

   private:
    Notes& notes_;
  };

  Notes& notes_;
  NotedLog log_{notes_};
};

class NotedStatusItem : public SimulatedStatusItem {
 public:
  NotedStatusItem(std::vector<SimulatedStatusItem*>& items, const SimulatedScreen& screen,
                  SimulatedApplication& application, SimulatedEventMonitors& monitors, Notes& notes)
      : SimulatedStatusItem(items, screen, application, monitors, StatusBar::variableLength),
        notes_(notes) {}
  void setImage(const StatusImage& image) override {
    SimulatedStatusItem::setImage(image);
    notes_.push_back("icon " + image.name);
  }

 private:
  Notes& notes_;
};

class NotedStatusBar : public StatusBar {
 public:
  NotedStatusBar(SimulatedApplication& application, SimulatedEventMonitors& monitors, Notes& notes)
      : application_(application), monitors_(monitors), notes_(notes) {}
  std::unique_ptr<StatusItem> makeStatusItem(double) override {
    return std::make_unique<NotedStatusItem>(items_, screen_, application_, monitors_, notes_);
  }

 private:
  SimulatedApplication& application_;
  SimulatedEventMonitors& monitors_;
  Notes& notes_;
  std::vector<SimulatedStatusItem*> items_;
  SimulatedScreen screen_;
};

class NotedDefaults : public SimulatedUserDefaults {
 public:
  NotedDefaults(Notes& notes) : SimulatedUserDefaults(std::make_shared<Store>()), notes_(notes) {}
  std::optional<std::string> string(const std::string& key) const override {
    notes_.push_back("read " + key);
    return SimulatedUserDefaults::string(key);
  }
  bool boolean(const std::string& key) const override {
    notes_.push_back("read " + key);
    return SimulatedUserDefaults::boolean(key);
  }

 private:
  Notes& notes_;
};

class StartOrderTest : public testing::Test {
 protected:
  /// What a start asks of the services, in order.
  Notes notesOfTheStart() {
    const auto coordinator = AppCoordinator::make();
    notes_.clear();
    coordinator->start();
    return std::exchange(notes_, {});
  }

  SimulatedWorld world_;
  SimulatedPlatform& machine_ = world_.machine();
  Notes notes_;
  NotedAccessibility accessibility_{machine_.applications(), notes_};
  NotedBundle bundle_{notes_};
  NotedNotifications distributed_{machine_.dispatch(), notes_};
  NotedEventTap eventTap_{machine_.dispatch(), notes_};
  NotedStatusBar statusBar_{machine_.application(), machine_.eventMonitors(), notes_};
  NotedDefaults defaults_{notes_};
  NotedWindows windows_{machine_.application(), notes_};
  NotedApplication application_{machine_.dispatch(), notes_};

  // The world's own comes back when this one goes.
  struct Noted {
    explicit Noted(StartOrderTest& test)
        : machine(test.machine_),
          platform({.accessibility = &test.accessibility_,
                    .appleEvents = &machine.appleEvents(),
                    .application = &test.application_,
                    .audioObjects = &machine.audioObjects(),
                    .bundle = &test.bundle_,
                    .childProcesses = &machine.childProcesses(),
                    .dispatch = &machine.dispatch(),
                    .distributedNotifications = &test.distributed_,
                    .eventMonitors = &machine.eventMonitors(),
                    .eventTap = &test.eventTap_,
                    .imageDecoder = &machine.imageDecoder(),
                    .keyEvents = &machine.keyEvents(),
                    .loginItem = &machine.loginItem(),
                    .mediaRemote = &machine.mediaRemote(),
                    .network = &machine.network(),
                    .notifications = &machine.notifications(),
                    .panels = &machine.panels(),
                    .softwareUpdate = &machine.softwareUpdate(),
                    .statusBar = &test.statusBar_,
                    .userDefaults = &test.defaults_,
                    .windows = &test.windows_,
                    .wording = &machine.wording(),
                    .workspace = &machine.workspace(),
                    .workspaceNotifications = &machine.workspaceNotifications()},
                   test.notes_) {}
    ~Noted() {
      platform.states().clear();
      setPlatform(&machine);
    }
    SimulatedPlatform& machine;
    NotedPlatform platform;
  };
  std::unique_ptr<Noted> noted_ = std::make_unique<Noted>(*this);
};

TEST_F(StartOrderTest, TheFirstStartTakesTheKeysAndThenShowsTheFirstRun) {
  EXPECT_THAT(
      notesOfTheStart(),
      ElementsAre("read hasCompletedOnboarding", "log First launch; showing onboarding", "tap",
                  "log Event tap running", "window", "trust?", "front",
                  "observe com.apple.accessibility.api", "icon MenuBarIcon",
                  "read selectedTargetAppID",
                  "log Routing media keys automatically (follows what is playing)",
                  "icon MenuBarIcon", "look for SUFeedURL", "look for mediaremote-adapter.pl"));
}

TEST_F(StartOrderTest, TheFirstStartWithoutTrustShowsTheFirstRunAndAsksForNothing) {
  accessibility_.setTrusted(false);
  EXPECT_THAT(notesOfTheStart(),
              ElementsAre("read hasCompletedOnboarding", "log First launch; showing onboarding",
                          "window", "trust?", "observe com.apple.accessibility.api", "front",
                          "observe com.apple.accessibility.api", "icon exclamationmark.triangle",
                          "read selectedTargetAppID",
                          "log Routing media keys automatically (follows what is playing)",
                          "icon exclamationmark.triangle", "look for SUFeedURL",
                          "look for mediaremote-adapter.pl"));
}

TEST_F(StartOrderTest, LaterStartsLookAtThePermissionAnewBeforeTheyTakeTheKeys) {
  defaults_.setBoolean("hasCompletedOnboarding", true);
  EXPECT_THAT(
      notesOfTheStart(),
      ElementsAre("read hasCompletedOnboarding", "trust?",
                  "log Accessibility permission at launch: true", "tap", "log Event tap running",
                  "observe com.apple.accessibility.api", "icon MenuBarIcon",
                  "read selectedTargetAppID",
                  "log Routing media keys automatically (follows what is playing)",
                  "icon MenuBarIcon", "look for SUFeedURL", "look for mediaremote-adapter.pl"));
}

TEST_F(StartOrderTest, LaterStartsWithoutTrustAskForItOnceAndTakeNoKeys) {
  accessibility_.setTrusted(false);
  defaults_.setBoolean("hasCompletedOnboarding", true);
  EXPECT_THAT(
      notesOfTheStart(),
      ElementsAre("read hasCompletedOnboarding", "trust?", "read hasBeenAccessibilityTrusted",
                  "prompt", "log Accessibility permission at launch: false",
                  "observe com.apple.accessibility.api", "icon exclamationmark.triangle",
                  "read selectedTargetAppID",
                  "log Routing media keys automatically (follows what is playing)",
                  "icon exclamationmark.triangle", "look for SUFeedURL",
                  "look for mediaremote-adapter.pl"));
}

}  // namespace
}  // namespace talmo::test
