#include "tests/backend/applications/PlayerProcess.h"

#include <sstream>
#include <stdexcept>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

std::vector<std::string> commandLine(const std::string& program, const std::string& name,
                                     const std::vector<std::string>& options) {
  std::vector<std::string> arguments{program, name};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return arguments;
}

}  // namespace

std::string PlayerProcess::program() {
  return TALMO_FAKE_PLAYER;
}

PlayerProcess::PlayerProcess(const std::string& name, const std::vector<std::string>& options,
                             const std::string& program)
    : process_(TestProcess::Start{.arguments = commandLine(program, name, options)}) {
  if (!waitUntil([this] { return process_.output().starts_with("ready\n"); })) {
    throw std::runtime_error("the fake player did not start: " + process_.output());
  }
}

std::vector<std::string> PlayerProcess::received() const {
  std::istringstream output(process_.output());
  std::vector<std::string> commands;
  std::string line;
  std::getline(output, line);
  while (std::getline(output, line)) commands.push_back(line.substr(line.find(' ') + 1));
  return commands;
}

}  // namespace talmo::test
