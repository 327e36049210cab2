#pragma once

#include <memory>
#include <string>

#include "platform/linux/x11/XConnection.h"

namespace talmo::test {

/// A picture behind all windows of a display, for as long as the object lives.
class Wallpaper {
 public:
  /// Throws when the display cannot be reached.
  explicit Wallpaper(const std::string& display);

 private:
  std::unique_ptr<XConnection> connection_;
};

}  // namespace talmo::test
