#pragma once

#include <functional>
#include <memory>

#include "onboarding/OnboardingModel.h"
#include "platform/Size.h"
#include "platform/Window.h"

namespace talmo {

/// Owns the window of the first run and what is behind it. Closing the window counts as finishing.
/// Main thread only.
class OnboardingWindowController : public std::enable_shared_from_this<OnboardingWindowController> {
 public:
  /// Of the window's content.
  static constexpr Size size{.width = 480, .height = 460};

  /// `onPermissionGranted` has the keys taken and answers whether that worked; `onFinished` is
  /// called once, and may let go of this object.
  static std::shared_ptr<OnboardingWindowController> make(std::function<bool()> onPermissionGranted,
                                                          std::function<void()> onFinished);

  /// Begins the first run and shows it in front of everything.
  void show();

 private:
  OnboardingWindowController(std::function<bool()> onPermissionGranted,
                             std::function<void()> onFinished);

  void connect();
  void windowWillClose();
  void setNeedsRender();
  void render();

  const std::shared_ptr<OnboardingModel> model_;
  const std::unique_ptr<Window> window_;
  /// Whether the window is to be rendered by an item of the main queue.
  bool needsRender_ = false;
};

}  // namespace talmo
