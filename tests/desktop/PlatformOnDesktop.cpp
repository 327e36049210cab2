#include "tests/desktop/PlatformOnDesktop.h"

#include <chrono>
#include <cstdlib>
#include <memory>

#include "platform/Platform.h"

namespace talmo::test {

using namespace std::chrono_literals;

namespace {

/// Sets one variable of this process's environment, or removes it.
void set(const std::string& name, const std::optional<std::string>& value) {
  if (value) {
    ::setenv(name.c_str(), value->c_str(), 1);
  } else {
    ::unsetenv(name.c_str());
  }
}

}  // namespace

PlatformOnDesktop::PlatformOnDesktop(const PrivateDesktop& desktop,
                                     const std::filesystem::path& bundleFolder, bool hasInterface) {
  for (const auto& [name, value] : desktop.environment()) {
    const char* before = std::getenv(name.c_str());
    environment_[name] = before == nullptr ? std::nullopt : std::optional<std::string>(before);
    set(name, value.empty() ? std::nullopt : std::optional(value));
  }
  if (hasInterface) toolkit_ = Toolkit::connect();
  platform_ = std::make_unique<LinuxPlatform>(bundleFolder);
  setPlatform(platform_.get());
}

PlatformOnDesktop::~PlatformOnDesktop() {
  platform_ = nullptr;
  setPlatform(nullptr);
  toolkit_ = nullptr;
  for (const auto& [name, value] : environment_) set(name, value);
}

bool PlatformOnDesktop::runUntil(const std::function<bool()>& condition) {
  LinuxDispatch& dispatch = platform_->dispatch();
  const Uptime deadline = dispatch.uptime() + 30s;
  while (!condition()) {
    const Uptime now = dispatch.uptime();
    if (now >= deadline) return false;
    dispatch.serveMainQueueUntil(condition, now + 10ms);
  }
  return true;
}

bool PlatformOnDesktop::runOnQueue(const std::function<void()>& work) {
  // Work that takes too long ends after its caller has gone.
  const auto isDone = std::make_shared<bool>(false);
  platform_->dispatch().globalQueue(QualityOfService::userInitiated).async([work, isDone] {
    work();
    platform().dispatch().mainQueue().async([isDone] { *isDone = true; });
  });
  return runUntil([&] { return *isDone; });
}

}  // namespace talmo::test
