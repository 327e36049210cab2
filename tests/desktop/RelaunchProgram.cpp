// talmo-test-relaunch: Talmo's coordinator on the real services, without anything around it.
// Relaunches itself once: when the folder that TALMO_TEST_FOLDER names has a file "relaunch", which
// it takes away.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include "app/AppCoordinator.h"
#include "permissions/AccessibilityPermission.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/Platform.h"

int main() {
  const char* const folder = std::getenv("TALMO_TEST_FOLDER");
  if (folder == nullptr) return EXIT_FAILURE;
  const std::filesystem::path request = std::filesystem::path(folder) / "relaunch";

  talmo::LinuxPlatform platform;
  talmo::setPlatform(&platform);
  {
    const auto coordinator = talmo::AppCoordinator::make();
    coordinator->start();
    const auto timer = platform.dispatch().scheduledTimer(
        std::chrono::milliseconds(20), std::chrono::milliseconds(0), [request] {
          std::error_code error;
          if (std::filesystem::remove(request, error)) talmo::AccessibilityPermission::relaunch();
        });
    platform.dispatch().runMainLoop();
    timer->invalidate();
    coordinator->tap().stop();
    platform.dispatch().shutdown();
  }
  talmo::setPlatform(nullptr);
  return platform.application().isTerminating() ? EXIT_SUCCESS : EXIT_FAILURE;
}
