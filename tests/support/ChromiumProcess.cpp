#include "tests/support/ChromiumProcess.h"

#include <fstream>
#include <stdexcept>
#include <system_error>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 60s;
constexpr std::chrono::milliseconds pollInterval = 20ms;

// What /usr/bin/chromium, a script, starts in the end.
constexpr const char* program = "/usr/lib/chromium/chromium";

/// What the browser writes into its profile when its debugging socket is open: the port, and the
/// path on it.
constexpr const char* socketFile = "DevToolsActivePort";

}  // namespace

bool ChromiumProcess::isInstalled() {
  return std::filesystem::exists(program);
}

ChromiumProcess::ChromiumProcess(const PrivateDesktop& desktop)
    : ChromiumProcess(desktop, Start{}) {}

ChromiumProcess::ChromiumProcess(const PrivateDesktop& desktop, const Start& start)
    : desktop_(desktop),
      profile_(start.profile.empty() ? desktop.folder() / "chromium" : start.profile) {
  // The file outlives the browser that wrote it.
  std::filesystem::remove(profile_ / socketFile);
  std::vector<std::string> arguments = command();
  if (start.hasSocket) arguments.emplace_back("--remote-debugging-port=0");
  arguments.insert(arguments.end(), start.arguments.begin(), start.arguments.end());
  process_ = desktop.start(std::move(arguments));
  const bool isUp = waitUntil([&] { return start.hasSocket ? readSocket() : hasLockedProfile(); },
                              patience, pollInterval);
  if (!isUp) throw std::runtime_error("Chromium did not start: " + process_->output());
}

void ChromiumProcess::open(const std::string& address) const {
  handOver({address});
}

void ChromiumProcess::openWindow(const std::string& address) const {
  openWindow(std::vector<std::string>{address});
}

void ChromiumProcess::openWindow(const std::vector<std::string>& addresses) const {
  std::vector<std::string> arguments{"--new-window"};
  arguments.insert(arguments.end(), addresses.begin(), addresses.end());
  handOver(arguments);
}

std::vector<std::string> ChromiumProcess::command() const {
  return {program,
          // The tests run as root too.
          "--no-sandbox",
          // No graphics card and little shared memory on the machines that test.
          "--disable-gpu", "--disable-dev-shm-usage",
          // A browser that asks nothing, fetches nothing and stores no secrets.
          "--no-first-run", "--no-default-browser-check", "--disable-background-networking",
          "--disable-component-update", "--disable-sync", "--disable-quic",
          "--password-store=basic", "--user-data-dir=" + profile_.string()};
}

bool ChromiumProcess::readSocket() {
  std::ifstream file(profile_ / socketFile);
  return file >> port_ >> socketPath_ && port_ > 0;
}

bool ChromiumProcess::hasLockedProfile() const {
  // A link to the host's name and the process id.
  std::error_code error;
  const std::string owner =
      std::filesystem::read_symlink(profile_ / "SingletonLock", error).string();
  return !error && owner.ends_with("-" + std::to_string(process_->pid()));
}

void ChromiumProcess::handOver(const std::vector<std::string>& arguments) const {
  std::vector<std::string> all = command();
  all.insert(all.end(), arguments.begin(), arguments.end());
  const std::unique_ptr<TestProcess> messenger = desktop_.start(std::move(all));
  const std::optional<int> status = messenger->waitForExit(patience);
  if (status != 0) throw std::runtime_error("Chromium took no address: " + messenger->output());
}

}  // namespace talmo::test
