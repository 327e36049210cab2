#include "nowplaying/TrackTitle.h"

#include <absl/strings/ascii.h>
#include <array>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

constexpr std::array<std::string_view, 4> markers{"(feat.", "(ft.", "[feat.", "[ft."};

}  // namespace

std::string TrackTitle::strippingFeatureSuffix(std::string_view title) {
  for (const std::string_view marker : markers) {
    // No letter outside ASCII has one of the markers' in another case, and this keeps the places.
    const std::string lower = absl::AsciiStrToLower({title.data(), title.size()});
    title = title.substr(0, lower.find(marker));
  }
  return std::string(UnicodeText::trimmed(title));
}

}  // namespace talmo
