// The simulated services keep the same contracts as the real ones.

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedAudioObjects.h"
#include "platform/simulated/SimulatedDispatch.h"
#include "platform/simulated/SimulatedImageDecoder.h"
#include "platform/simulated/SimulatedLoginItem.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWindows.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/contract/AccessibilityContract.h"
#include "tests/contract/AppleEventsContract.h"
#include "tests/contract/AudioObjectsContract.h"
#include "tests/contract/DispatchContract.h"
#include "tests/contract/EventTapContract.h"
#include "tests/contract/ImageDecoderContract.h"
#include "tests/contract/KeyEventsContract.h"
#include "tests/contract/LoginItemContract.h"
#include "tests/contract/UserDefaultsContract.h"
#include "tests/contract/WindowsContract.h"
#include "tests/contract/WorkspaceContract.h"

namespace talmo::test {
namespace {

class SimulatedDispatchWorld : public DispatchWorld {
 public:
  explicit SimulatedDispatchWorld(std::uint64_t seed) : dispatch_(seed) {}

  Dispatch& dispatch() override { return dispatch_; }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return dispatch_.runUntil(condition, limit);
  }

 private:
  SimulatedDispatch dispatch_;
};

class SimulatedUserDefaultsWorld : public UserDefaultsWorld {
 public:
  UserDefaults& defaults() override { return *defaults_; }
  void reopen() override { defaults_ = std::make_unique<SimulatedUserDefaults>(store_); }

 private:
  const std::shared_ptr<SimulatedUserDefaults::Store> store_ =
      std::make_shared<SimulatedUserDefaults::Store>();
  std::unique_ptr<SimulatedUserDefaults> defaults_ =
      std::make_unique<SimulatedUserDefaults>(store_);
};

class SimulatedEventTapWorld : public EventTapWorld {
 public:
  Dispatch& dispatch() override { return world_.time(); }
  EventTap& eventTap() override { return taps(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

  void press(std::int32_t code) override { taps().postMediaKey(code, true); }

  void release(std::int32_t code) override {
    if (const auto held = repeats_.extract(code); !held.empty()) held.mapped()->invalidate();
    taps().postMediaKey(code, false);
  }

  void hold(std::int32_t code) override {
    press(code);
    repeats_[code] =
        world_.time().scheduledTimer(std::chrono::milliseconds(40), Duration::zero(),
                                     [this, code] { taps().postMediaKey(code, true, true); });
  }

  std::vector<Seen> othersSaw() override {
    std::vector<Seen> seen;
    for (const SimulatedEventTap::Event& event : taps().passed()) {
      const std::int64_t data1 = event.content.value().data1;
      seen.push_back(
          {.code = static_cast<std::int32_t>(data1 >> 16), .isPress = (data1 & 0xFF00) == 0x0A00});
    }
    return seen;
  }

  void refuseTaps() override { taps().setTrusted(false); }

 private:
  SimulatedEventTap& taps() { return world_.machine().eventTap(); }

  SimulatedWorld world_;
  std::map<std::int32_t, std::shared_ptr<Timer>> repeats_;
};

class SimulatedKeyEventsWorld : public KeyEventsWorld {
 public:
  Dispatch& dispatch() override { return world_.time(); }
  KeyEvents& keyEvents() override { return world_.machine().keyEvents(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }

  ProcessIdentifier startApplication() override { return applications().launch(application); }

  ProcessIdentifier startProcessWithoutWindows() override {
    const ProcessIdentifier process = applications().launch("nl.brelm.windowless");
    applications().quit(process);
    return process;
  }

  void bringForward(ProcessIdentifier) override { applications().setFrontmost(application); }

  std::vector<KeyboardEvent> received(ProcessIdentifier process) override {
    constexpr std::uint64_t shiftAndControl = 0x60000;
    std::vector<KeyboardEvent> events = applications().keyboardEvents(process);
    for (KeyboardEvent& event : events) event.flags &= shiftAndControl;
    return events;
  }

 private:
  static constexpr const char* application = "nl.brelm.application";

  SimulatedApplications& applications() { return world_.machine().applications(); }

  SimulatedWorld world_;
};

class SimulatedAccessibilityWorld : public AccessibilityWorld {
 public:
  Accessibility& accessibility() override { return world_.machine().accessibility(); }

  void setTrusted(bool trusted) override { world_.machine().accessibility().setTrusted(trusted); }

  ProcessIdentifier startApplication() override {
    return applications().launch("nl.brelm.application");
  }

  void openWindow(ProcessIdentifier process, const std::string& title) override {
    titles_[process].push_back(title);
    applications().setWindowTitles(process, titles_[process]);
  }

  void retitle(ProcessIdentifier process, const std::string& title) override {
    titles_.at(process).front() = title;
    applications().setWindowTitles(process, titles_[process]);
  }

  void closeWindows(ProcessIdentifier process) override {
    applications().setWindowTitles(process, {});
  }

 private:
  SimulatedApplications& applications() { return world_.machine().applications(); }

  SimulatedWorld world_;
  std::map<ProcessIdentifier, std::vector<std::string>> titles_;
};

class SimulatedAppleEventsWorld : public AppleEventsWorld {
 public:
  AppleEvents& appleEvents() override { return world_.machine().appleEvents(); }

  void startPlayer(const std::string& bundleID) override {
    applications().install({bundleID, bundleID});
    players_[bundleID] = applications().launch(bundleID);
  }

  void quitPlayer(const std::string& bundleID) override {
    applications().quit(players_.at(bundleID));
  }

  void setManner(const std::string& bundleID, Manner manner) override {
    using Simulated = SimulatedApplications::Manner;
    applications().setManner(bundleID, manner == Manner::answers ? Simulated::answers
                                       : manner == Manner::fails ? Simulated::fails
                                                                 : Simulated::neverAnswers);
  }

  std::vector<std::string> received(const std::string& bundleID) override {
    return applications().commands(bundleID);
  }

  void setTrack(const std::string& bundleID, const Track& track) override {
    const auto orNothing = [](const std::string& text) {
      return text.empty() ? std::nullopt : std::optional(text);
    };
    if (track.name.empty()) {
      applications().setTrack(bundleID, std::nullopt);
    } else {
      applications().setTrack(bundleID, {{.name = track.name,
                                          .artist = orNothing(track.artist),
                                          .artworkUrl = orNothing(track.artworkUrl)}});
    }
  }

  void setPlayerState(const std::string& bundleID, PlayerState state) override {
    applications().setPlayerState(bundleID, state == PlayerState::playing  ? 0x6B505350
                                            : state == PlayerState::paused ? 0x6B505370
                                                                           : 0x6B505353);
  }

  Uptime now() override { return world_.time().uptime(); }

 private:
  SimulatedApplications& applications() { return world_.machine().applications(); }

  SimulatedWorld world_;
  std::map<std::string, ProcessIdentifier> players_;
};

class SimulatedWorkspaceWorld : public WorkspaceWorld {
 public:
  Workspace& workspace() override { return world_.machine().workspace(); }

  void install(const std::string& bundleID, const std::string& name) override {
    applications().install({bundleID, name});
  }
  void uninstall(const std::string& bundleID) override { applications().uninstall(bundleID); }
  ProcessIdentifier launch(const std::string& bundleID) override {
    return applications().launch(bundleID);
  }
  void quit(ProcessIdentifier process) override { applications().quit(process); }
  void bringToFront(const std::string& bundleID) override {
    applications().setFrontmost(bundleID.empty() ? std::nullopt : std::optional(bundleID));
  }
  void use(const std::string& bundleID, Date when) override {
    SimulatedApplications::Installed application = *applications().installed(bundleID);
    application.lastUsed = when;
    applications().install(application);
  }

 private:
  SimulatedApplications& applications() { return world_.machine().applications(); }

  SimulatedWorld world_;
};

class SimulatedWindowsWorld : public WindowsWorld {
 public:
  Windows& windows() override { return windows_; }
  void personCloses() override { windows_.windows().front()->close(); }
  void press(const std::string& button) override {
    EXPECT_TRUE(windows_.windows().front()->press(button)) << button;
  }

 private:
  SimulatedDispatch dispatch_;
  SimulatedApplication application_{dispatch_};
  SimulatedWindows windows_{application_};
};

class SimulatedLoginItemWorld : public LoginItemWorld {
 public:
  LoginItem& item() override { return item_; }
  void reopen() override {}
  void switchOff() override { item_.setEnabled(false); }
  void setFails(bool fails) override {
    item_.setFailure(fails ? std::optional<std::string>("not permitted") : std::nullopt);
  }

 private:
  SimulatedLoginItem item_;
};

class SimulatedImageDecoderWorld : public ImageDecoderWorld {
 public:
  ImageDecoder& decoder() override { return decoder_; }
  std::string encode(int width, int height, const std::string& name) override {
    return SimulatedImageDecoder::encode(width, height, name);
  }
  std::string claim(int width, int height) override { return encode(width, height, "claim"); }

 private:
  SimulatedImageDecoder decoder_;
};

class SimulatedAudioObjectsWorld : public AudioObjectsWorld {
 public:
  AudioObjects& audioObjects() override { return audio_; }
  std::string bundleID() override { return "nl.brelm.application"; }

  Stream start() override {
    const Stream stream = nextProcess_++;
    objects_[stream] = audio_.add({.bundleID = bundleID(), .process = stream});
    return stream;
  }
  Stream startHelper(Stream& application) override {
    application = nextProcess_++;
    const Stream stream = nextProcess_++;
    objects_[stream] = audio_.add({.process = stream});
    audio_.setResponsibleProcess(stream, application);
    return stream;
  }
  void cork(Stream stream, bool isCorked) override {
    SimulatedAudioObjects::Process process{.isRunningOutput = !isCorked, .process = stream};
    process.bundleID = bundleID();
    audio_.set(objects_.at(stream), process);
  }
  void end(Stream stream) override { audio_.remove(objects_.at(stream)); }

 private:
  SimulatedAudioObjects audio_;
  std::map<Stream, AudioObjects::Object> objects_;
  Stream nextProcess_ = 500;
};

INSTANTIATE_TEST_SUITE_P(Simulated, AccessibilityContract, testing::Values([] {
                           return std::make_unique<SimulatedAccessibilityWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, AudioObjectsContract, testing::Values([] {
                           return std::make_unique<SimulatedAudioObjectsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, DispatchContract,
                         testing::Values([] { return std::make_unique<SimulatedDispatchWorld>(0); },
                                         [] { return std::make_unique<SimulatedDispatchWorld>(1); },
                                         [] { return std::make_unique<SimulatedDispatchWorld>(2); },
                                         [] {
                                           return std::make_unique<SimulatedDispatchWorld>(3);
                                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, UserDefaultsContract, testing::Values([] {
                           return std::make_unique<SimulatedUserDefaultsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, EventTapContract, testing::Values([] {
                           return std::make_unique<SimulatedEventTapWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, ImageDecoderContract, testing::Values([] {
                           return std::make_unique<SimulatedImageDecoderWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, KeyEventsContract, testing::Values([] {
                           return std::make_unique<SimulatedKeyEventsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, LoginItemContract, testing::Values([] {
                           return std::make_unique<SimulatedLoginItemWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, AppleEventsContract, testing::Values([] {
                           return std::make_unique<SimulatedAppleEventsWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, WorkspaceContract, testing::Values([] {
                           return std::make_unique<SimulatedWorkspaceWorld>();
                         }));

INSTANTIATE_TEST_SUITE_P(Simulated, WindowsContract,
                         testing::Values([] { return std::make_unique<SimulatedWindowsWorld>(); }));

}  // namespace
}  // namespace talmo::test
