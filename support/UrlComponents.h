#pragma once

#include <optional>
#include <string>

namespace talmo {

/// The components of a URL that the program looks at.
struct UrlComponents {
  /// As written, percent-escapes decoded, a trailing dot kept; never empty.
  std::string host;
  /// Percent-escapes decoded, dot segments kept; "/" when the URL has none.
  std::string path;

  bool operator==(const UrlComponents&) const = default;

  /// Parses `url`; nothing when it is no URL or has no host.
  static std::optional<UrlComponents> parse(const std::string& url);
};

}  // namespace talmo
