#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/Menu.h"
#include "platform/ViewKind.h"
#include "platform/ViewRole.h"

namespace talmo {

/// What a window shows, as a value: a tree whose parts say what they are, not how they look.
struct View {
  /// Told apart from its siblings by it, and known again in the next value.
  std::string identity;
  ViewKind kind = ViewKind::vertical;
  ViewRole role = ViewRole::group;

  std::string text;
  std::optional<Image> image;
  std::vector<View> children;

  /// Called on the main thread when it is pressed.
  std::function<void()> action;
  /// Makes the menu that drops down when it is pressed, afresh each time.
  std::function<Menu()> menu;

  /// Chosen, or in motion.
  bool isOn = false;
  /// The keyboard highlight is here.
  bool isHighlighted = false;

  /// What assistive technology says instead of, or where there is no, text.
  std::string accessibilityLabel;
  /// What pressing it does.
  std::string accessibilityHint;
};

}  // namespace talmo
