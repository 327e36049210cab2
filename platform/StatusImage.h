#pragma once

#include <string>

namespace talmo {

/// The picture of a status item.
struct StatusImage {
  /// An asset of the program's, or else a symbol of the system's family.
  enum class Kind { asset, symbol };

  Kind kind = Kind::asset;
  std::string name;
  /// Whether only its shape counts and the bar gives the colour.
  bool isTemplate = false;
  std::string accessibilityDescription;

  bool operator==(const StatusImage&) const = default;
};

}  // namespace talmo
