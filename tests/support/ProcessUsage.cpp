#include "tests/support/ProcessUsage.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace talmo::test {
namespace {

/// What follows the name of a field in a file of /proc (proc(5)); empty where there is none.
std::string field(const std::filesystem::path& file, std::string_view name) {
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(name)) return line.substr(name.size());
  }
  return {};
}

double kilobytes(const std::string& process, std::string_view name) {
  const std::string text = field(process + "/smaps_rollup", name);
  if (text.empty()) throw std::runtime_error("the system does not tell the memory");
  return std::stod(text);
}

}  // namespace

double ProcessUsage::residentMemory() const {
  return kilobytes(folder(), "Rss:");
}

double ProcessUsage::ownMemory() const {
  return kilobytes(folder(), "Pss_Anon:");
}

std::size_t ProcessUsage::descriptors() const {
  const std::filesystem::directory_iterator all(folder() + "/fd");
  return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

std::map<pid_t, ProcessUsage::Thread> ProcessUsage::threads() const {
  std::map<pid_t, Thread> found;
  for (const auto& thread : std::filesystem::directory_iterator(folder() + "/task")) {
    const std::filesystem::path status = thread.path() / "status";
    const std::string sleeps = field(status, "voluntary_ctxt_switches:");
    // It may have ended in between.
    if (sleeps.empty()) continue;
    found[std::stoi(thread.path().filename())] = {.name = field(status, "Name:\t"),
                                                  .sleeps = std::stod(sleeps)};
  }
  return found;
}

}  // namespace talmo::test
