#pragma once

#include <optional>
#include <string>

#include "platform/Image.h"

namespace talmo {

/// The icons of the players' applications, each looked up once for the whole process. Main thread
/// only.
class AppIconCache {
 public:
  AppIconCache() = delete;

  /// The icon of an application; nothing when it has none or is not installed. Whether one that is
  /// missing has been installed since is looked up afresh.
  static std::optional<Image> icon(const std::string& bundleID);
};

}  // namespace talmo
