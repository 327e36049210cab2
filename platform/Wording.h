#pragma once

#include <string>

namespace talmo {

/// How this system is spoken of. Any thread.
class Wording {
 public:
  virtual ~Wording() = default;

  /// A text that names the Mac or its settings, as it is said of this system.
  virtual std::string of(const std::string& text) const = 0;
};

}  // namespace talmo
