#pragma once

#include <string>
#include <vector>

namespace talmo {

/// The query of a URL: names with their values, in order.
struct UrlQuery {
  struct Item {
    std::string name;
    std::string value;
  };

  std::vector<Item> items;

  /// As it stands behind the question mark: in UTF-8, with everything percent-encoded that is no
  /// letter, digit, '-', '.', '_' or '~'. So a plus stays a plus, which a bare one would not at
  /// servers that read it as a space.
  std::string percentEncoded() const;
};

}  // namespace talmo
