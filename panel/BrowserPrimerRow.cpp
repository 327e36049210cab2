#include "panel/BrowserPrimerRow.h"

#include <utility>

#include "panel/ViewParts.h"
#include "platform/Platform.h"

namespace talmo {

View browserPrimerRow(const BrowserPrimer& primer, std::function<void()> allow,
                      std::function<void()> dismiss) {
  const std::string body =
      "Your keys already control " + primer.name +
      " while it is playing. Allow access and Talmo can also find those tabs when they are paused, "
      "name them here, and tell them apart when both are open. " +
      platform().wording().of("macOS asks once per browser.");
  return verticalView("browser-primer", ViewRole::offer,
                      {textView("title", ViewRole::label, "SoundCloud or YouTube in a browser?"),
                       textView("body", ViewRole::body, body),
                       horizontalView("buttons", ViewRole::group,
                                      {textButtonView("allow", ViewRole::prominentButton,
                                                      "Allow for " + primer.name, std::move(allow)),
                                       textButtonView("dismiss", ViewRole::plainButton, "No thanks",
                                                      std::move(dismiss))})});
}

}  // namespace talmo
