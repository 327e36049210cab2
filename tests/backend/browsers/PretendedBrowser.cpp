#include "tests/backend/browsers/PretendedBrowser.h"

#include <stdexcept>

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
  const std::string link = "/proc/" + std::to_string(pid()) + "/exe";
  std::error_code ignored;
  if (!waitUntil([&] { return std::filesystem::read_symlink(link, ignored) == program; })) {
    throw std::runtime_error("no process runs " + program.string());
  }
}

}  // namespace talmo::test
