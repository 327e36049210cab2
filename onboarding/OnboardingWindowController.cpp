#include "onboarding/OnboardingWindowController.h"

#include <utility>

#include "onboarding/OnboardingView.h"
#include "platform/Platform.h"

namespace talmo {
namespace {

std::unique_ptr<Window> makeWindow() {
  std::unique_ptr<Window> window = platform().windows().makeWindow(
      {.title = "Welcome to Talmo",
       .styleMask = WindowParameters::titled | WindowParameters::closable |
                    WindowParameters::fullSizeContentView,
       .contentSize = OnboardingWindowController::size,
       .isTitleBarTransparent = true,
       .isTitleHidden = true,
       .isMovableByBackground = true,
       .isReleasedWhenClosed = false,
       .isOpaque = false,
       .hasClearBackground = true,
       .acceptsFirstMouse = true});
  window->center();
  return window;
}

}  // namespace

std::shared_ptr<OnboardingWindowController> OnboardingWindowController::make(
    std::function<bool()> onPermissionGranted, std::function<void()> onFinished) {
  std::shared_ptr<OnboardingWindowController> controller(
      new OnboardingWindowController(std::move(onPermissionGranted), std::move(onFinished)));
  controller->connect();
  return controller;
}

OnboardingWindowController::OnboardingWindowController(std::function<bool()> onPermissionGranted,
                                                       std::function<void()> onFinished)
    : model_(OnboardingModel::make()), window_(makeWindow()) {
  model_->onPermissionGranted = std::move(onPermissionGranted);
  model_->onFinished = std::move(onFinished);
}

void OnboardingWindowController::connect() {
  const std::weak_ptr<OnboardingWindowController> weak = weak_from_this();
  model_->onRequestDismiss = [weak] {
    if (const std::shared_ptr<OnboardingWindowController> self = weak.lock()) {
      self->window_->close();
    }
  };
  model_->observe([weak] {
    if (const std::shared_ptr<OnboardingWindowController> self = weak.lock()) {
      self->setNeedsRender();
    }
  });
  window_->setOnWillClose([weak] {
    if (const std::shared_ptr<OnboardingWindowController> self = weak.lock()) {
      self->windowWillClose();
    }
  });
  render();
}

void OnboardingWindowController::show() {
  model_->begin();
  render();
  window_->center();
  platform().application().activate();
  window_->makeKeyAndOrderFront();
}

void OnboardingWindowController::windowWillClose() {
  model_->finish();
}

void OnboardingWindowController::setNeedsRender() {
  // Observers are told before a value changes, and several may change together.
  if (std::exchange(needsRender_, true)) return;
  platform().dispatch().mainQueue().async([weak = weak_from_this()] {
    const std::shared_ptr<OnboardingWindowController> self = weak.lock();
    if (self && self->needsRender_) self->render();
  });
}

void OnboardingWindowController::render() {
  needsRender_ = false;
  window_->setContent(onboardingView(model_));
}

}  // namespace talmo
