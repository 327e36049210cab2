#include "tests/support/TalmoProcess.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 20s;
constexpr std::chrono::milliseconds pollInterval = 5ms;

}  // namespace

std::filesystem::path TalmoProcess::settingsFile(const PrivateDesktop& desktop) {
  return desktop.configFolder() / "talmo" / "settings.json";
}

void TalmoProcess::select(const PrivateDesktop& desktop, const std::optional<std::string>& id) {
  const std::filesystem::path file = settingsFile(desktop);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream settings(file);
  settings << R"({"hasCompletedOnboarding": true)";
  if (id) settings << R"(, "selectedTargetAppID": ")" << *id << '"';
  settings << "}\n";
}

TalmoProcess::TalmoProcess(const PrivateDesktop& desktop, const std::filesystem::path& program)
    : process_(desktop.start({program.string()})) {
  const bool isSet = waitUntil(
      [this] {
        return !lines("Routing media keys").empty() || !lines("No target selected").empty() ||
               !process_->isRunning();
      },
      patience, pollInterval);
  if (!isSet || !process_->isRunning()) {
    throw std::runtime_error("Talmo did not start: " + process_->output());
  }
}

std::vector<std::string> TalmoProcess::lines(const std::string& text) const {
  std::istringstream log(process_->output());
  std::vector<std::string> found;
  for (std::string line; std::getline(log, line);) {
    if (line.find(text) != std::string::npos) found.push_back(line);
  }
  return found;
}

bool TalmoProcess::waitForLines(const std::string& text, std::size_t count) const {
  return waitUntil([&] { return lines(text).size() >= count; }, patience, pollInterval);
}

}  // namespace talmo::test
