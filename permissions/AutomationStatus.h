#pragma once

#include <string_view>

namespace talmo {

/// The person's consent to automating one application. A status that is not known yet is an empty
/// optional, never a fifth case.
enum class AutomationStatus { granted, denied, notDetermined, notRunning };

/// The case name, for log lines.
constexpr std::string_view name(AutomationStatus status) {
  switch (status) {
    case AutomationStatus::granted:
      return "granted";
    case AutomationStatus::denied:
      return "denied";
    case AutomationStatus::notDetermined:
      return "notDetermined";
    case AutomationStatus::notRunning:
      return "notRunning";
  }
  return {};
}

}  // namespace talmo
