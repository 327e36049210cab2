#include "web/WebSessionOwnership.h"

#include <algorithm>
#include <cstddef>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

constexpr std::size_t weakCharacters = 3;

/// The title as titles are compared; nothing for one that is too weak.
std::optional<std::string> normalized(std::string_view title) {
  const std::string lower = UnicodeText::composed(UnicodeText::lowerCase(title));
  std::string joined;
  for (const std::string_view piece : UnicodeText::splitAtWhitespace(lower)) {
    if (!joined.empty()) joined += ' ';
    joined += piece;
  }
  if (UnicodeText::characterCount(joined) <= weakCharacters) return std::nullopt;
  return joined;
}

bool holds(std::string_view tabTitle, const std::string& normalizedSessionTitle) {
  const std::optional<std::string> tab = normalized(tabTitle);
  return tab && tab->find(normalizedSessionTitle) != std::string::npos;
}

}  // namespace

bool WebSessionOwnership::titleMatches(std::string_view tabTitle, std::string_view sessionTitle) {
  const std::optional<std::string> session = normalized(sessionTitle);
  return session && holds(tabTitle, *session);
}

WebSessionOwnership::Verdict WebSessionOwnership::judge(
    const std::optional<std::string>& sessionTitle, const std::optional<WebTabMatch>& myTab,
    const std::vector<WebTabMatch>& siblings) {
  if (siblings.empty()) return Verdict::mine;
  if (!sessionTitle) return Verdict::unknown;
  const std::optional<std::string> session = normalized(*sessionTitle);
  if (!session) return Verdict::unknown;
  if (myTab && holds(myTab->title, *session)) return Verdict::mine;
  const bool isOther = std::ranges::any_of(
      siblings, [&](const WebTabMatch& sibling) { return holds(sibling.title, *session); });
  return isOther ? Verdict::other : Verdict::unknown;
}

}  // namespace talmo
