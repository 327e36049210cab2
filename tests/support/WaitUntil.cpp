#include "tests/support/WaitUntil.h"

#include <poll.h>

namespace talmo::test {

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds timeout,
               std::chrono::milliseconds interval) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return condition();
    ::poll(nullptr, 0, static_cast<int>(interval.count()));
  }
  return true;
}

}  // namespace talmo::test
