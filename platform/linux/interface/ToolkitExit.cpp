#include "platform/linux/interface/ToolkitExit.h"

#include <utility>

namespace talmo {
namespace {

/// What belongs to a thread is destroyed before anything static, and exit handlers run among the
/// static destructors: too late for the other threads, which still use what these destroy.
struct Leaving {
  ~Leaving() {
    const std::function<void()> leave = std::exchange(function, nullptr);
    if (leave) leave();
  }

  std::function<void()> function;
};

thread_local Leaving leaving;

}  // namespace

ToolkitExit::ToolkitExit(std::function<void()> leave) {
  leaving.function = std::move(leave);
}

ToolkitExit::~ToolkitExit() {
  leaving.function = nullptr;
}

}  // namespace talmo
