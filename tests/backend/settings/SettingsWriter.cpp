#include <filesystem>
#include <string>

#include "platform/linux/settings/LinuxUserDefaults.h"
#include "tests/support/TestPlatform.h"

/// Stores ever longer and shorter values in the settings file that it is given, until it is killed.
int main(int, char** arguments) {
  const talmo::test::TestPlatform platform;
  talmo::LinuxUserDefaults defaults{std::filesystem::path(arguments[1])};
  for (std::size_t round = 0;; ++round) {
    const std::string text(1 + round * 7919 % 20'000, static_cast<char>('a' + round % 26));
    defaults.setString("text", text);
    defaults.setString("length", std::to_string(text.size()));
  }
}
