#include "tests/support/FakePlayerProcess.h"

#include <sstream>
#include <stdexcept>

#include "tests/support/WaitUntil.h"

namespace talmo::test {

std::vector<std::string> FakePlayerProcess::command(const std::string& name,
                                                    const std::vector<std::string>& options) {
  std::vector<std::string> arguments = {TALMO_FAKE_PLAYER, name};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return arguments;
}

FakePlayerProcess::FakePlayerProcess(const PrivateDesktop& desktop, const std::string& name,
                                     const std::vector<std::string>& options)
    : process_(desktop.start(command(name, options))) {
  if (!waitUntil([this] { return process_->output().starts_with("ready"); })) {
    throw std::runtime_error("the fake player did not start: " + process_->output());
  }
}

std::vector<std::string> FakePlayerProcess::commands() const {
  std::istringstream output(process_->output());
  std::string line;
  std::getline(output, line);
  std::vector<std::string> found;
  while (std::getline(output, line)) found.push_back(line.substr(line.find(' ') + 1));
  return found;
}

bool FakePlayerProcess::waitForCommands(std::size_t count) const {
  return waitUntil([&] { return commands().size() >= count; });
}

}  // namespace talmo::test
