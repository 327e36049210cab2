#include "tests/backend/browsers/PretendedBrowser.h"

#include <fstream>
#include <stdexcept>
#include <system_error>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

TestProcess::Start command(const std::filesystem::path& program,
                           const std::vector<std::string>& options,
                           const std::map<std::string, std::string>& environment,
                           const std::string& script) {
  PretendedBrowser::install(program);
  // The options are the script's arguments, and the shell's name for itself comes before them.
  std::vector<std::string> arguments{program, "-c", script, "browser"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  return {.arguments = arguments, .environment = environment};
}

}  // namespace

void PretendedBrowser::install(const std::filesystem::path& program) {
  std::filesystem::create_directories(program.parent_path());
  std::filesystem::copy_file("/usr/bin/bash", program,
                             std::filesystem::copy_options::skip_existing);
}

PretendedBrowser::PretendedBrowser(const std::filesystem::path& program,
                                   const std::vector<std::string>& options,
                                   const std::map<std::string, std::string>& environment,
                                   const std::string& script)
    : process_(command(program, options, environment, script)) {
  const std::filesystem::path process = "/proc/" + std::to_string(pid());
  // The program is there before its arguments are, and these before its environment is.
  const auto hasStarted = [&] {
    std::error_code ignored;
    if (std::filesystem::read_symlink(process / "exe", ignored) != program) return false;
    return std::ifstream(process / "environ").peek() != std::ifstream::traits_type::eof();
  };
  if (!waitUntil(hasStarted)) {
    throw std::runtime_error("no process runs " + program.string());
  }
}

}  // namespace talmo::test
