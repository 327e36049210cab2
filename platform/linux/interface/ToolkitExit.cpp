#include "platform/linux/interface/ToolkitExit.h"

#include <cstdlib>
#include <utility>

namespace talmo {
namespace {

/// What an exit handler can reach.
std::function<void()>& leaving() {
  // Never destroyed, as the handler runs among the destructors.
  static auto* const function = new std::function<void()>;
  return *function;
}

void handleExit() {
  const std::function<void()> leave = std::exchange(leaving(), nullptr);
  if (leave) leave();
}

}  // namespace

ToolkitExit::ToolkitExit(std::function<void()> leave) {
  leaving() = std::move(leave);
  [[maybe_unused]] static const int isRegistered = std::atexit(handleExit);
}

ToolkitExit::~ToolkitExit() {
  leaving() = nullptr;
}

}  // namespace talmo
