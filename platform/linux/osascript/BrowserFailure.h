#pragma once

#include <string>

namespace talmo {

/// Why a browser did not do what it was asked.
struct BrowserFailure {
  enum class Kind {
    /// The window, the tab or the browser itself is not there any more.
    gone,
    /// The browser does not let itself be asked this.
    refused,
    /// The browser did not answer in time.
    timedOut,
  };

  Kind kind = Kind::gone;
  /// What the browser said about it, for people to read; may be empty.
  std::string message;

  friend bool operator==(const BrowserFailure&, const BrowserFailure&) = default;
};

}  // namespace talmo
