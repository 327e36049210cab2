#include "tests/support/TestProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

std::filesystem::path makeOutputFile() {
  std::string name = (std::filesystem::temp_directory_path() / "talmo-test-XXXXXX").string();
  const int descriptor = ::mkstemp(name.data());
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "mkstemp");
  ::close(descriptor);
  return name;
}

[[noreturn]] void runChild(char* const* arguments, char* const* environment, int output,
                           int descriptor3) {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  // A test may have blocked signals for itself; the program starts with none blocked.
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  const int null = ::open("/dev/null", O_RDONLY);
  ::dup2(null, STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(output, STDERR_FILENO);
  int firstToClose = 3;
  if (descriptor3 >= 0) {
    if (descriptor3 == 3) {
      ::fcntl(3, F_SETFD, 0);
    } else {
      ::dup2(descriptor3, 3);
    }
    firstToClose = 4;
  }
  ::close_range(static_cast<unsigned>(firstToClose), ~0U, 0);
  ::execvpe(arguments[0], arguments, environment);
  ::_exit(127);
}

}  // namespace

TestProcess::TestProcess(const Start& start) : outputFile_(makeOutputFile()) {
  // Everything is laid out before the fork: the child may not allocate.
  std::vector<std::string> arguments = start.arguments;
  std::vector<char*> argumentPointers;
  for (std::string& argument : arguments) argumentPointers.push_back(argument.data());
  argumentPointers.push_back(nullptr);

  std::vector<std::string> environment;
  for (char** entry = ::environ; *entry != nullptr; ++entry) {
    const std::string_view text(*entry);
    const std::string name(text.substr(0, text.find('=')));
    if (!start.environment.contains(name)) environment.emplace_back(text);
  }
  for (const auto& [name, value] : start.environment) {
    if (!value.empty()) environment.push_back(name + "=" + value);
  }
  std::vector<char*> environmentPointers;
  for (std::string& entry : environment) environmentPointers.push_back(entry.data());
  environmentPointers.push_back(nullptr);

  const int output = ::open(outputFile_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  if (output < 0) throw std::system_error(errno, std::generic_category(), "open");
  pid_ = ::fork();
  if (pid_ == 0) {
    runChild(argumentPointers.data(), environmentPointers.data(), output,
             start.descriptor3.value_or(-1));
  }
  ::close(output);
  if (pid_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
}

TestProcess::~TestProcess() {
  end();
  std::error_code ignored;
  std::filesystem::remove(outputFile_, ignored);
}

bool TestProcess::isRunning() {
  if (exit_) return false;
  int status = 0;
  if (::waitpid(pid_, &status, WNOHANG) == pid_) reap(status);
  return !exit_;
}

void TestProcess::signal(int number) const {
  if (!exit_) ::kill(pid_, number);
}

std::optional<int> TestProcess::waitForExit(std::chrono::milliseconds timeout) {
  waitUntil([this] { return !isRunning(); }, timeout);
  return exit_;
}

void TestProcess::end() {
  if (!isRunning()) return;
  // A stopped process takes the request only when it goes on.
  signal(SIGTERM);
  signal(SIGCONT);
  if (waitForExit(3s)) return;
  signal(SIGKILL);
  waitForExit(10s);
}

std::string TestProcess::output() const {
  std::ifstream file(outputFile_, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void TestProcess::reap(int status) {
  exit_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace talmo::test
