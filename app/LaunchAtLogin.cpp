#include "app/LaunchAtLogin.h"

#include <optional>
#include <string>

#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("launch-at-login");

}  // namespace

bool LaunchAtLogin::isEnabled() {
  return platform().loginItem().isEnabled();
}

void LaunchAtLogin::toggle() {
  LoginItem& item = platform().loginItem();
  const std::optional<std::string> failure =
      item.isEnabled() ? item.unregisterMainApp() : item.registerMainApp();
  if (failure) log.error("Launch at login toggle failed: %{public}s", *failure);
}

}  // namespace talmo
