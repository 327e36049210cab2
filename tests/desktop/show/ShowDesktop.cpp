#include "tests/desktop/show/ShowDesktop.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <signal.h>
#include <stdexcept>

#include <xcb/xcb.h>

#include "tests/support/ScreenPicture.h"
#include "tests/support/TalmoWindows.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

const std::filesystem::path talmoProgram = TALMO_PROGRAM;
const std::filesystem::path pictureFolder = talmoProgram.parent_path() / "pictures";
const std::filesystem::path logFile = talmoProgram.parent_path() / "talmo-show.log";

// For how long nothing changes on a screen that has come to rest.
constexpr auto stillness = 400ms;

volatile sig_atomic_t interrupted = 0;

/// Waits until a part of the screen looks the same for a while, or until that takes too long.
void awaitStillness(const std::string& display, const PixelArea& area) {
  ScreenPicture last = ScreenPicture::take(display, area);
  auto since = std::chrono::steady_clock::now();
  ShowDesktop::await([&] {
    ScreenPicture now = ScreenPicture::take(display, area);
    if (now.difference(last)) since = std::chrono::steady_clock::now();
    last = std::move(now);
    return std::chrono::steady_clock::now() - since > stillness;
  });
}

}  // namespace

void stopShowAtInterruption() {
  struct sigaction action = {};
  action.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

ShowDesktop::ShowDesktop()
    : compositor_(desktop_.start({"picom", "--backend", "xrender", "--config", "/dev/null"})),
      window_(desktop_.displayName(),
              {.title = "Somebody else's window", .width = 310, .height = 180}),
      keys_(desktop_.displayName()),
      mouse_(desktop_.displayName()),
      windows_(desktop_.displayName()),
      helper_(desktop_, talmoProgram.parent_path()) {
  if (!await([this] { return windows_.hasCompositor(); })) {
    throw std::runtime_error("the compositor did not start: " + compositor_->output());
  }
  // Beside what comes to the middle.
  move(window_.id(), 950, 590);
  // Talmo tells assistive technology what it shows.
  desktop_.setVariable("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
  std::filesystem::create_directories(pictureFolder);
  std::filesystem::remove(logFile);
  report_.tell("A desktop of its own on display " + desktop_.displayName() +
               ": window manager, tray, session bus, sound server, and a window in front.");
}

void ShowDesktop::move(std::uint32_t window, int x, int y) {
  const std::array<std::uint32_t, 2> place{static_cast<std::uint32_t>(x),
                                           static_cast<std::uint32_t>(y)};
  xcb_configure_window(connection_->get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                       place.data());
  xcb_flush(connection_->get());
}

bool ShowDesktop::check(const std::string& seen, bool good) {
  const std::string log = newLog();
  report_.check(seen, good);
  if (!good) ShowReport::quote(log);
  return good;
}

bool ShowDesktop::await(const std::function<bool()>& condition) {
  const bool good = waitUntil([&] { return interrupted != 0 || condition(); }, patience, 1ms);
  if (interrupted != 0) throw std::runtime_error("interrupted");
  return good;
}

bool ShowDesktop::startTalmo(const std::string& selection) {
  TalmoProcess::select(desktop_, selection);
  return startTalmo();
}

bool ShowDesktop::startTalmo() {
  shown_ = 0;
  talmo_ = std::make_unique<TalmoProcess>(desktop_, talmoProgram);
  return waitForTalmoIcon(windows_, talmo_->process().pid());
}

nlohmann::json ShowDesktop::settings() const {
  std::ifstream file(TalmoProcess::settingsFile(desktop_));
  nlohmann::json stored = nlohmann::json::parse(file, nullptr, false);
  return stored.is_object() ? stored : nlohmann::json::object();
}

bool ShowDesktop::isShown(const std::string& text) {
  for (const AccessibleThing& thing : tree_.things(talmo_->process().pid())) {
    if (thing.name == text) return true;
  }
  return false;
}

bool ShowDesktop::click(const std::string& role, const std::string& name) {
  std::optional<PixelArea> place;
  await([&] {
    place = tree_.place(talmo_->process().pid(), role, name);
    return place.has_value();
  });
  if (place) mouse_.click(place->middleX(), place->middleY());
  return place.has_value();
}

void ShowDesktop::clickIcon(std::uint8_t button) {
  const std::optional<PixelArea> icon = talmoIcon(windows_, talmo_->process().pid());
  if (!icon) throw std::runtime_error("Talmo has no icon in the tray: " + talmo_->log());
  mouse_.click(icon->middleX(), icon->middleY(), button);
}

void ShowDesktop::focusWindow() {
  window_.focus();
  window_.clear();
}

bool ShowDesktop::press(const ShowKey& key, const std::function<std::string()>& sight,
                        const std::function<bool()>& reacted) {
  const std::string keyLine = std::string("media key: ") + key.logged + " down";
  const std::size_t keyLines = talmo_->lines(keyLine).size();

  const auto start = std::chrono::steady_clock::now();
  keys_.tap(key.keysym);
  const bool hasReacted = await(reacted);
  const auto time = std::chrono::steady_clock::now() - start;
  const bool good = hasReacted && talmo_->waitForLines(keyLine, keyLines + 1);
  return check(std::string("Press ") + key.what + ": " + sight() + " after " +
                   std::to_string(time / 1ms) + " ms",
               good);
}

bool ShowDesktop::helperSees(
    const std::function<bool(const std::optional<AdapterNowPlayingSnapshot>&)>& isRight) {
  std::optional<AdapterNowPlayingSnapshot> snapshot;
  const bool good = await([&] {
    snapshot = helper_.look();
    return isRight(snapshot);
  });
  std::string sight = "nothing plays";
  if (snapshot) {
    sight = '"' + snapshot->title + "\" " + (snapshot->isPlaying ? "plays" : "is paused") + " in " +
            snapshot->bundleID;
    if (snapshot->artwork) {
      sight += ", cover " + std::to_string(snapshot->artwork->width) + " px";
    }
  }
  return check("  helper: " + sight, good);
}

void ShowDesktop::wait(std::chrono::milliseconds time) {
  if (waitUntil([] { return interrupted != 0; }, time)) throw std::runtime_error("interrupted");
}

bool ShowDesktop::windowGotNoKeys() {
  keys_.tap("a");
  await([this] { return window_.transcript().ends_with("-a"); });
  const bool good = window_.transcript() == "+a -a";
  window_.clear();
  return check("The window in front got none of these keys", good);
}

bool ShowDesktop::windowGets(const ShowKey& key) {
  const std::string keysym = key.keysym;
  focusWindow();
  keys_.tap(keysym);
  const bool good = await([&] { return window_.transcript() == "+" + keysym + " -" + keysym; });
  return check(std::string("Press ") + key.what + ": the window in front gets it", good);
}

bool ShowDesktop::endTalmo() {
  talmo_->process().signal(SIGTERM);
  return awaitEnd("Talmo ends when it is asked to");
}

bool ShowDesktop::awaitEnd(const std::string& how) {
  await([this] { return !talmo_->process().isRunning(); });
  const bool good = check(how, talmo_->process().waitForExit(0s) == 0);
  std::ofstream(logFile, std::ios::app) << talmo_->log() << '\n';
  talmo_ = nullptr;
  return good;
}

void ShowDesktop::takePicture(const std::string& name, PixelArea area,
                              std::optional<PixelArea> still) {
  if (area.width == 0) area = windows_.screen();
  // The pointer is no part of it, but what it hovers over is.
  mouse_.moveTo(2, windows_.screen().height - 2);
  awaitStillness(desktop_.displayName(), still.value_or(area));
  const std::filesystem::path file = pictureFolder / name;
  const std::string crop = std::to_string(area.width) + 'x' + std::to_string(area.height) + '+' +
                           std::to_string(area.x) + '+' + std::to_string(area.y);
  const auto import =
      desktop_.start({"import", "-window", "root", "-crop", crop, "+repage", file.string()});
  const bool good = import->waitForExit(patience) == 0;
  check("Picture: " + name, good);
  if (good) {
    pictures_.push_back(file);
  } else {
    ShowReport::quote(import->output());
  }
}

void ShowDesktop::sum() const {
  report_.sum();
  std::cout << "\nPictures of what it looked like:\n";
  for (const std::filesystem::path& file : pictures_) std::cout << "   " << file.string() << '\n';
  std::cout << "What Talmo logged meanwhile:\n   " << logFile.string() << std::endl;
}

std::string ShowDesktop::newLog() {
  if (!talmo_) return {};
  const std::string log = talmo_->log();
  std::string news = log.substr(std::min(shown_, log.size()));
  shown_ = log.size();
  return news;
}

}  // namespace talmo::test
