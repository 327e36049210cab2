#include "panel/PermissionWarningRow.h"

#include <utility>

#include "panel/ViewParts.h"
#include "permissions/AccessibilityPermission.h"

namespace talmo {
namespace {

View openSettingsButton(ViewRole role) {
  return textButtonView("open-settings", role, "Grant Accessibility Access\u2026",
                        &AccessibilityPermission::openSystemSettings);
}

}  // namespace

View permissionWarningRow(PermissionWarningKind kind) {
  std::vector<View> buttons;
  if (kind == PermissionWarningKind::needsGrant) {
    buttons.push_back(openSettingsButton(ViewRole::prominentButton));
  } else {
    buttons.push_back(textButtonView("relaunch", ViewRole::prominentButton,
                                     "Already allowed? Reopen Talmo",
                                     &AccessibilityPermission::relaunch));
    buttons.push_back(openSettingsButton(ViewRole::linkButton));
  }
  return horizontalView(
      "permission-warning", ViewRole::warning,
      {symbolView("symbol", ViewRole::warningSymbol, "exclamationmark.triangle.fill"),
       verticalView("buttons", ViewRole::group, std::move(buttons))});
}

}  // namespace talmo
