#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "web/WebTabMatch.h"

namespace talmo {

/// Whether what a browser's media session plays is one tab or another, told by their titles: a
/// session names its browser and its title, never its tab. Any thread.
class WebSessionOwnership {
 public:
  enum class Verdict { mine, other, unknown };

  WebSessionOwnership() = delete;

  /// Whether the tab's title holds the session's, letter case, spacing and the site's decorations
  /// aside. Titles of three characters or fewer are too weak to tell anything.
  static bool titleMatches(std::string_view tabTitle, std::string_view sessionTitle);

  /// `siblings` are the other player tabs of the same browser; the first whose title holds the
  /// session's makes it theirs.
  static Verdict judge(const std::optional<std::string>& sessionTitle,
                       const std::optional<WebTabMatch>& myTab,
                       const std::vector<WebTabMatch>& siblings);
};

/// The case name, for log lines.
constexpr std::string_view name(WebSessionOwnership::Verdict verdict) {
  switch (verdict) {
    case WebSessionOwnership::Verdict::mine:
      return "mine";
    case WebSessionOwnership::Verdict::other:
      return "other";
    case WebSessionOwnership::Verdict::unknown:
      return "unknown";
  }
  return {};
}

}  // namespace talmo
