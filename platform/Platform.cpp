#include "platform/Platform.h"

#include <cstdio>
#include <cstdlib>

namespace talmo {
namespace {

Platform* current = nullptr;

}  // namespace

Platform& platform() {
  if (current == nullptr) {
    std::fputs("talmo: a service was asked for before a platform was set\n", stderr);
    std::abort();
  }
  return *current;
}

void setPlatform(Platform* platform) {
  current = platform;
}

}  // namespace talmo
