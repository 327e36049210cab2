#include "tests/desktop/show/ShowDesktop.h"

#include <iomanip>
#include <iostream>
#include <signal.h>
#include <stdexcept>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

const std::filesystem::path talmoProgram = TALMO_PROGRAM;

volatile sig_atomic_t interrupted = 0;

const char* verdict(bool good) {
  return good ? "yes" : "NO";
}

void printSubject(const std::string& subject) {
  std::cout << "      " << std::left << std::setw(10) << subject;
}

}  // namespace

void stopShowAtInterruption() {
  struct sigaction action = {};
  action.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

ShowDesktop::ShowDesktop()
    : window_(desktop_.displayName(), {.title = "Somebody else's window", .width = 360}),
      keys_(desktop_.displayName()),
      helper_(desktop_, talmoProgram.parent_path()) {
  std::cout << "A desktop of its own: display " << desktop_.displayName()
            << ", window manager, session bus, sound server" << std::endl;
}

void ShowDesktop::startTalmo(const std::string& selection, const std::string& heading) {
  std::cout << '\n' << heading << '\n';
  TalmoProcess::select(desktop_, selection);
  talmo_ = std::make_unique<TalmoProcess>(desktop_, talmoProgram);
  printed_ = 0;
  printLog();
}

void ShowDesktop::focusWindow() {
  window_.focus();
  window_.clear();
}

bool ShowDesktop::press(const ShowKey& key, const std::string& subject,
                        const std::function<std::string()>& sight,
                        const std::function<bool()>& reacted) {
  const std::string keyLine = std::string("media key: ") + key.logged + " down";
  const std::size_t keyLines = talmo_->lines(keyLine).size();
  const std::string before = sight();
  std::cout << "  Press " << key.what << " (" << key.keysym << ")" << std::endl;

  const auto start = std::chrono::steady_clock::now();
  keys_.tap(key.keysym);
  const bool hasReacted = waitUntil([&] { return interrupted != 0 || reacted(); }, patience, 1ms);
  const auto time = std::chrono::steady_clock::now() - start;
  const bool good = hasReacted && talmo_->waitForLines(keyLine, keyLines + 1);
  if (interrupted != 0) throw std::runtime_error("interrupted");

  printLog();
  printSubject(subject);
  std::cout << before << "  ->  " << sight() << "  (" << time / 1ms << " ms): " << verdict(good)
            << std::endl;
  return good;
}

bool ShowDesktop::helperSees(
    const std::function<bool(const std::optional<AdapterNowPlayingSnapshot>&)>& isRight) {
  std::optional<AdapterNowPlayingSnapshot> snapshot;
  const bool good = waitUntil(
      [&] {
        snapshot = helper_.look();
        return interrupted != 0 || isRight(snapshot);
      },
      patience);
  if (interrupted != 0) throw std::runtime_error("interrupted");
  printSubject("Helper");
  if (snapshot) {
    std::cout << snapshot->title << (snapshot->isPlaying ? " plays in " : " is paused in ")
              << snapshot->bundleID;
    if (snapshot->artwork) {
      std::cout << ", artwork " << snapshot->artwork->width << " x " << snapshot->artwork->height;
    }
  } else {
    std::cout << "nothing plays";
  }
  std::cout << ": " << verdict(good) << std::endl;
  return good;
}

void ShowDesktop::wait(std::chrono::milliseconds time, const std::string& why) {
  std::cout << "  " << time / 1s << " s pass, " << why << std::endl;
  if (waitUntil([] { return interrupted != 0; }, time)) throw std::runtime_error("interrupted");
}

bool ShowDesktop::windowGotNoKeys() {
  keys_.tap("a");
  waitUntil([this] { return window_.transcript().ends_with("-a"); }, patience);
  const bool good = window_.transcript() == "+a -a";
  window_.clear();
  return print("The window in front got none of these keys", good);
}

bool ShowDesktop::endTalmo() {
  talmo_->process().signal(SIGTERM);
  const bool good = talmo_->process().waitForExit(patience) == 0;
  talmo_ = nullptr;
  return print("Talmo ended when it was asked to", good);
}

bool ShowDesktop::print(const std::string& what, bool good) {
  std::cout << "  " << what << ": " << verdict(good) << std::endl;
  return good;
}

void ShowDesktop::takePicture(const std::string& name) {
  const std::filesystem::path file = talmoProgram.parent_path() / name;
  const auto import = desktop_.start({"import", "-window", "root", file.string()});
  if (import->waitForExit(patience) == 0) {
    std::cout << "  A picture of the desktop: " << file.string() << std::endl;
  } else {
    std::cout << "  No picture of the desktop: " << import->output() << std::endl;
  }
}

void ShowDesktop::printLog() {
  const std::string log = talmo_->log();
  // A line that is still being written waits for the next time.
  for (std::size_t end = log.find('\n', printed_); end != std::string::npos;
       end = log.find('\n', printed_)) {
    std::cout << "      Talmo     " << log.substr(printed_, end - printed_) << '\n';
    printed_ = end + 1;
  }
}

}  // namespace talmo::test
