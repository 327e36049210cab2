#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talmo {

/// The program's whole persistent state. Every property is read from and written to the person's
/// settings at once; nothing is kept in memory and nobody is told of a change. Any thread.
class Preferences {
 public:
  Preferences() = delete;

  /// In place of a target id: follow what is playing.
  static constexpr std::string_view autoSentinel = "auto";
  /// In place of a target id: routing off. Nothing writes it any more; a stored one reads as auto.
  static constexpr std::string_view routingOffSentinel = "none";

  /// The selected target's id or a sentinel; nothing, which reads as auto, before the first choice.
  static std::optional<std::string> selectedTargetAppID();
  static void setSelectedTargetAppID(const std::optional<std::string>& id);

  /// The target that auto routing chose last.
  static std::optional<std::string> lastResolvedTargetID();
  static void setLastResolvedTargetID(const std::optional<std::string>& id);

  static bool hasCompletedOnboarding();
  static void setHasCompletedOnboarding(bool value);

  static bool browserAccessDismissed();
  static void setBrowserAccessDismissed(bool value);

  /// Whether the Accessibility permission was ever seen granted; never reset.
  static bool hasBeenAccessibilityTrusted();
  static void setHasBeenAccessibilityTrusted(bool value);
};

}  // namespace talmo
