// talmo-recorded-start FILE [ARGUMENT ...]
//
// Writes to FILE, as JSON, how it was started, and goes on until SIGTERM, or for a minute. The file
// is complete when it appears.
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

#include <nlohmann/json.hpp>

namespace {

/// Open descriptors and what they are.
nlohmann::json descriptors() {
  nlohmann::json open = nlohmann::json::object();
  for (int descriptor = 0; descriptor < 1024; ++descriptor) {
    if (::fcntl(descriptor, F_GETFD) == -1) continue;
    std::error_code ignored;
    open[std::to_string(descriptor)] =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
  }
  return open;
}

std::vector<int> blockedSignals() {
  sigset_t blocked;
  ::pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  std::vector<int> numbers;
  for (int number = 1; number < 32; ++number) {
    if (::sigismember(&blocked, number) == 1) numbers.push_back(number);
  }
  return numbers;
}

void record(const std::vector<std::string>& arguments) {
  const nlohmann::json start = {
      {"arguments", arguments},       {"process", ::getpid()},
      {"parent", ::getppid()},        {"session", ::getsid(0)},
      {"descriptors", descriptors()}, {"blockedSignals", blockedSignals()}};
  const std::filesystem::path& file = arguments.at(1);
  std::ofstream(file.string() + ".draft") << start;
  std::filesystem::rename(file.string() + ".draft", file);
}

}  // namespace

int main(int count, char** values) {
  try {
    record(std::vector<std::string>(values, values + count));
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  ::alarm(60);
  while (true) ::pause();
}
