#include "tests/backend/adapter/AdapterProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds patience = 20s;

std::pair<FileDescriptor, FileDescriptor> makePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe2");
  }
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

/// Adds what can be read now to `text`, waiting until `deadline` for something. False at the end of
/// the file and when nothing came.
bool readSome(const FileDescriptor& descriptor, std::string& text, Clock::time_point deadline) {
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
  pollfd poll{.fd = descriptor.get(), .events = POLLIN, .revents = 0};
  if (::poll(&poll, 1, static_cast<int>(std::max<decltype(left)>(left, 0))) != 1) return false;
  std::array<char, 65536> buffer{};
  const ssize_t count = ::read(descriptor.get(), buffer.data(), buffer.size());
  if (count <= 0) return false;
  text.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> found;
  for (std::string& text : texts) found.push_back(text.data());
  found.push_back(nullptr);
  return found;
}

}  // namespace

AdapterProcess::AdapterProcess(const Start& start) {
  auto [output, outputEnd] = makePipe();
  auto [errors, errorsEnd] = makePipe();
  output_ = std::move(output);
  errors_ = std::move(errors);

  posix_spawn_file_actions_t actions{};
  ::posix_spawn_file_actions_init(&actions);
  if (start.isOutputClosed) {
    ::posix_spawn_file_actions_addclose(&actions, STDOUT_FILENO);
  } else {
    ::posix_spawn_file_actions_adddup2(&actions, outputEnd.get(), STDOUT_FILENO);
  }
  ::posix_spawn_file_actions_adddup2(&actions, errorsEnd.get(), STDERR_FILENO);

  std::vector<std::string> arguments = start.arguments;
  std::vector<std::string> environment;
  for (char** entry = ::environ; *entry != nullptr; ++entry) {
    const std::string_view text(*entry);
    const std::string name(text.substr(0, text.find('=')));
    if (!start.environment.contains(name)) environment.emplace_back(text);
  }
  for (const auto& [name, value] : start.environment) environment.push_back(name + "=" + value);

  const int error = ::posix_spawn(&pid_, arguments.at(0).c_str(), &actions, nullptr,
                                  pointers(arguments).data(), pointers(environment).data());
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), "posix_spawn");
}

AdapterProcess::~AdapterProcess() {
  if (exit_) return;
  ::kill(pid_, SIGKILL);
  ::waitpid(pid_, nullptr, 0);
}

std::optional<std::string> AdapterProcess::nextLine() {
  const auto deadline = Clock::now() + patience;
  std::size_t end = unread_.find('\n');
  while (end == std::string::npos) {
    if (!readSome(output_, unread_, deadline)) return std::nullopt;
    end = unread_.find('\n');
  }
  std::string line = unread_.substr(0, end);
  unread_.erase(0, end + 1);
  return line;
}

bool AdapterProcess::waitForEndOfOutput() {
  const auto deadline = Clock::now() + patience;
  while (readSome(output_, unread_, deadline)) {
  }
  return Clock::now() < deadline;
}

std::optional<int> AdapterProcess::waitForExit() {
  waitUntil(
      [this] {
        int status = 0;
        if (!exit_ && ::waitpid(pid_, &status, WNOHANG) == pid_) {
          exit_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        }
        return exit_.has_value();
      },
      patience);
  return exit_;
}

std::string AdapterProcess::restOfOutput() {
  waitForEndOfOutput();
  return std::exchange(unread_, {});
}

std::string AdapterProcess::errors() {
  std::string text;
  const auto deadline = Clock::now() + patience;
  while (readSome(errors_, text, deadline)) {
  }
  return text;
}

}  // namespace talmo::test
