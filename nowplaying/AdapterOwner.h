#pragma once

#include <optional>
#include <string>

namespace talmo {

/// Who owns the media session, and with what.
struct AdapterOwner {
  std::string bundleID;
  /// The application that the owner is a helper process of.
  std::optional<std::string> parentBundleID;
  std::string title;

  bool operator==(const AdapterOwner&) const = default;
};

}  // namespace talmo
