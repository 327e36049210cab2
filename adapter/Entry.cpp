#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <string>
#include <tuple>
#include <unistd.h>
#include <vector>

#include "adapter/Helper.h"
#include "adapter/SessionSource.h"
#include "adapter/WriteWhole.h"

namespace talmo {
namespace {

/// A standard descriptor that is closed becomes one that nothing can be done with, so that no
/// connection of ours gets its number and is then written to.
void occupyStandardDescriptors() {
  const std::array<int, 3> unusable{O_WRONLY, O_RDONLY, O_RDONLY};
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    if (::fcntl(descriptor, F_GETFD) != -1 || errno != EBADF) continue;
    // The lowest free number is this one.
    [[maybe_unused]] const int opened =
        ::open("/dev/null", unusable[static_cast<std::size_t>(descriptor)]);
  }
}

/// As the script hands them over: through the environment, without a shell in between.
std::vector<std::string> argumentsOfScript() {
  const auto variable = [](const std::string& name) -> std::string {
    const char* const value = std::getenv(name.c_str());
    return value == nullptr ? "" : value;
  };
  const std::string countText = variable("TALMO_ADAPTER_ARGUMENT_COUNT");
  std::size_t count = 0;
  std::from_chars(countText.data(), countText.data() + countText.size(), count);
  std::vector<std::string> arguments(count);
  for (std::size_t index = 0; index < count; ++index) {
    arguments[index] = variable("TALMO_ADAPTER_ARGUMENT_" + std::to_string(index));
  }
  return arguments;
}

int runToStatus() {
  try {
    return runHelper(argumentsOfScript(), makeSessionSource, STDOUT_FILENO, STDERR_FILENO);
  } catch (const std::exception& error) {
    // Out of memory at the most, and nothing of C++ may reach perl.
    std::ignore =
        writeWhole(STDERR_FILENO, "mediaremote-adapter: " + std::string(error.what()) + "\n");
    return 1;
  }
}

}  // namespace
}  // namespace talmo

/// What the script calls, on perl's only thread. Ends the process.
extern "C" __attribute__((visibility("default"))) void talmoAdapterMain() {
  talmo::occupyStandardDescriptors();
  std::signal(SIGPIPE, SIG_IGN);
  // Perl has nothing left to do, and nothing of ours waits in a buffer.
  ::_exit(talmo::runToStatus());
}
