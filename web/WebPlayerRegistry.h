#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "web/WebPlayerTarget.h"

namespace talmo {

/// The fixed table of web players. Its members are built on first use, by any thread, and never
/// change. The order of `all` decides where a URL could belong to more than one player.
class WebPlayerRegistry {
 public:
  WebPlayerRegistry() = delete;

  static const WebPlayerTarget& soundCloud();
  static const WebPlayerTarget& youTube();
  static const std::vector<WebPlayerTarget>& all();

  /// The player of that id; nothing (a null pointer) for an unknown one.
  static const WebPlayerTarget* targetWithID(std::string_view id);

  /// The first player that the URL belongs to; nothing (a null pointer) when there is none.
  static const WebPlayerTarget* targetForURL(const std::string& url);

  /// Every player's URL filters, in order, each once.
  static const std::vector<std::string>& urlFilters();
};

}  // namespace talmo
