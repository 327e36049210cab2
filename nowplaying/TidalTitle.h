#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talmo {

/// The track that a title of TIDAL's window names.
struct TidalTitle {
  // Neither is ever empty.
  std::string title;
  std::string artist;

  bool operator==(const TidalTitle&) const = default;

  /// Nothing for a window title that names no track.
  static std::optional<TidalTitle> parseTidalTitle(std::string_view windowTitle);
};

}  // namespace talmo
