#pragma once

#include <string>

#include "web/BrowserDialect.h"

namespace talmo {

/// A browser whose tabs can be seen and driven by AppleScript.
struct SupportedBrowser {
  std::string bundleID;
  BrowserDialect dialect = BrowserDialect::chromium;

  bool operator==(const SupportedBrowser&) const = default;
};

}  // namespace talmo
