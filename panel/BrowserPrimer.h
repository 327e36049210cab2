#pragma once

#include <string>

namespace talmo {

/// The offer to look for players in a browser's tabs.
struct BrowserPrimer {
  /// Posted to the notification centre of the process when the person wants an offer back that they
  /// had dismissed.
  static constexpr auto restored = "nl.brelm.Talmo.browserPrimerRestored";

  std::string bundleID;
  /// The browser's display name.
  std::string name;

  bool operator==(const BrowserPrimer&) const = default;
};

}  // namespace talmo
