#include "tests/support/PrivateDisplay.h"

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

namespace talmo::test {
namespace {

/// Reads one line from a pipe; empty when none comes in time.
std::string readLine(int descriptor, std::chrono::milliseconds timeout) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  std::string line;
  while (true) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    pollfd poll{descriptor, POLLIN, 0};
    if (left.count() <= 0 || ::poll(&poll, 1, static_cast<int>(left.count())) != 1) return {};
    std::array<char, 64> buffer{};
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count <= 0) return {};
    line.append(buffer.data(), static_cast<std::size_t>(count));
    if (const std::size_t end = line.find('\n'); end != std::string::npos) {
      return line.substr(0, end);
    }
  }
}

}  // namespace

PrivateDisplay::PrivateDisplay() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe for the X server");
  server_ = std::make_unique<TestProcess>(
      TestProcess::Start{.arguments = {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x800x24",
                                       "-nolisten", "tcp", "-noreset"},
                         .descriptor3 = ends[1]});
  ::close(ends[1]);
  const std::string number = readLine(ends[0], std::chrono::seconds(20));
  ::close(ends[0]);
  if (number.empty()) throw std::runtime_error("the X server did not start: " + server_->output());
  name_ = ":" + number;
}

}  // namespace talmo::test
