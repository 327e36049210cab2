#include "platform/linux/LinuxOwnApplication.h"

#include <cstdlib>

namespace talmo {

void LinuxOwnApplication::terminate() {
  isTerminating_ = true;
  dispatch_.stopMainLoop();
}

std::optional<std::string> LinuxOwnApplication::environmentVariable(const std::string& name) const {
  const char* const value = std::getenv(name.c_str());
  if (value == nullptr) return std::nullopt;
  return value;
}

}  // namespace talmo
