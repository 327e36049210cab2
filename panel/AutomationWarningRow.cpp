#include "panel/AutomationWarningRow.h"

#include "panel/ViewParts.h"
#include "permissions/AutomationPermission.h"

namespace talmo {

View automationWarningRow(const AutomationWarning& warning) {
  return verticalView(
      "automation-warning", ViewRole::warning,
      {textView("title", ViewRole::label, warning.title),
       textView("explanation", ViewRole::body, warning.explanation),
       textButtonView("open-settings", ViewRole::linkButton,
                      "Open Automation settings for " + warning.name,
                      &AutomationPermission::openSettings, "arrow.up.forward.app")});
}

}  // namespace talmo
