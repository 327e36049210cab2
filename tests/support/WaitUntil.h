#pragma once

#include <chrono>
#include <functional>

namespace talmo::test {

/// Polls `condition` until it holds or the time runs out, and returns whether it held.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds timeout = std::chrono::seconds(10),
               std::chrono::milliseconds interval = std::chrono::milliseconds(2));

}  // namespace talmo::test
