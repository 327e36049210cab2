#include "tests/support/FakePlayerProcess.h"

#include <sstream>
#include <stdexcept>
#include <utility>

#include "tests/support/WaitUntil.h"

namespace talmo::test {

std::string FakePlayerProcess::program() {
  return TALMO_FAKE_PLAYER;
}

std::vector<std::string> FakePlayerProcess::command(const std::string& name,
                                                    const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {program(), name};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return arguments;
}

FakePlayerProcess::FakePlayerProcess(const std::string& name,
                                     const std::vector<std::string>& options)
    : FakePlayerProcess(
          std::make_unique<TestProcess>(TestProcess::Start{.arguments = command(name, options)})) {}

FakePlayerProcess::FakePlayerProcess(const PrivateDesktop& desktop, const std::string& name,
                                     const std::vector<std::string>& options)
    : FakePlayerProcess(desktop.start(command(name, options))) {}

FakePlayerProcess::FakePlayerProcess(std::unique_ptr<TestProcess> process)
    : process_(std::move(process)) {
  if (!waitUntil([this] { return process_->output().starts_with("ready\n"); })) {
    throw std::runtime_error("the fake player did not start: " + process_->output());
  }
}

std::vector<std::string> FakePlayerProcess::received() const {
  std::istringstream output(process_->output());
  std::string line;
  std::getline(output, line);
  std::vector<std::string> found;
  while (std::getline(output, line)) found.push_back(line.substr(line.find(' ') + 1));
  return found;
}

bool FakePlayerProcess::waitForCommands(std::size_t count) const {
  return waitUntil([&] { return received().size() >= count; });
}

}  // namespace talmo::test
