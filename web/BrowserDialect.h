#pragma once

namespace talmo {

/// The AppleScript vocabulary of a browser.
enum class BrowserDialect { safari, chromium };

}  // namespace talmo
