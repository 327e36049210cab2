#pragma once

#include <string>

namespace talmo {

/// One browser tab that shows a web player.
struct WebTabMatch {
  std::string targetID;
  std::string browserBundleID;
  /// The browser's localized name at scan time, or its bundle identifier.
  std::string browserName;
  std::string url;
  /// Empty when the browser gave none.
  std::string title;

  bool operator==(const WebTabMatch&) const = default;

  /// Whether the browser that held the tab runs, as of now. Any thread.
  bool isBrowserRunning() const;
};

}  // namespace talmo
