#pragma once

#include <optional>
#include <string>
#include <vector>

#include "web/SupportedBrowser.h"

namespace talmo {

/// The fixed table of browsers, and which of them run. Any thread.
class SupportedBrowsers {
 public:
  SupportedBrowsers() = delete;

  /// The table. Its order is that of every scan, as far as nothing better is known.
  static const std::vector<SupportedBrowser>& all();

  /// The browsers that run: the playing one first, then the one in front, then the others in the
  /// order of the table. `playing` is a bundle identifier of any application.
  static std::vector<SupportedBrowser> runningFrontmostFirst(
      const std::optional<std::string>& playing);

  /// The list with `frontmost`, and before it `playing`, moved to its front, each if it is in it.
  static std::vector<SupportedBrowser> prioritise(std::vector<SupportedBrowser> list,
                                                  const std::optional<std::string>& frontmost,
                                                  const std::optional<std::string>& playing);

  /// The localized name of an application that runs; the bundle identifier of one that does not.
  static std::string name(const std::string& bundleID);

  /// Whether that is a browser of the table.
  static bool isSupported(const std::optional<std::string>& bundleID);

  /// The dialect of a browser; `chromium` for one that is not in the table.
  static BrowserDialect dialect(const std::string& bundleID);
};

}  // namespace talmo
