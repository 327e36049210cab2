#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "onboarding/OnboardingModel.h"
#include "tests/component/ComponentTest.h"

namespace talmo::test {

class OnboardingModelTest : public ComponentTest {
 protected:
  static constexpr const char* spotify = "com.spotify.client";
  static constexpr const char* vlc = "org.videolan.vlc";
  static constexpr const char* settingsURL =
      "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

  /// A model that writes down whom it calls, and whose tap can be had unless told otherwise.
  std::shared_ptr<OnboardingModel> make() {
    auto model = OnboardingModel::make();
    model->onRequestDismiss = [this] { calls.emplace_back("dismiss"); };
    model->onPermissionGranted = [this] {
      calls.emplace_back("granted");
      return tapRuns;
    };
    model->onFinished = [this] { calls.emplace_back("finished"); };
    return model;
  }

  /// One that waits for the permission.
  std::shared_ptr<OnboardingModel> waiting() {
    setTrusted(false);
    auto model = make();
    model->begin();
    return model;
  }

  void setTrusted(bool trusted) { machine().accessibility().setTrusted(trusted); }
  void notify() { machine().distributedNotifications().post("com.apple.accessibility.api"); }
  int questions() { return machine().accessibility().trustQuestions(); }

  /// Lets this time pass.
  void pass(Duration time) {
    auto isLater = std::make_shared<bool>(false);
    machine().dispatch().mainQueue().asyncAfter(time, [isLater] { *isLater = true; });
    EXPECT_TRUE(runUntil([isLater] { return *isLater; }));
  }

  std::vector<std::string> log() { return machine().log().messages("onboarding"); }

  std::vector<std::string> calls;
  bool tapRuns = true;
};

}  // namespace talmo::test
