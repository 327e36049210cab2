#include "nowplaying/TidalTitle.h"

#include <array>
#include <cstddef>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

// With a hyphen, or with an en dash (U+2013); the hyphen goes first.
constexpr std::array<std::string_view, 2> suffixes{" - TIDAL", " \u2013 TIDAL"};
constexpr std::array<std::string_view, 2> separators{" - ", " \u2013 "};

}  // namespace

std::optional<TidalTitle> TidalTitle::parseTidalTitle(std::string_view windowTitle) {
  for (const std::string_view suffix : suffixes) {
    if (windowTitle.ends_with(suffix)) windowTitle.remove_suffix(suffix.size());
  }
  if (UnicodeText::lowerCase(windowTitle) == "tidal") return std::nullopt;
  for (const std::string_view separator : separators) {
    const std::size_t place = windowTitle.find(separator);
    if (place == std::string_view::npos) continue;
    const std::string_view title = UnicodeText::trimmed(windowTitle.substr(0, place));
    const std::string_view artist =
        UnicodeText::trimmed(windowTitle.substr(place + separator.size()));
    if (title.empty() || artist.empty()) return std::nullopt;
    return TidalTitle{.title = std::string(title), .artist = std::string(artist)};
  }
  return std::nullopt;
}

}  // namespace talmo
