// talmo-show
//
// Shows Talmo at work on a private desktop: real players, real key presses through the X server.
// Prints what is pressed, what Talmo logs, what the player does and what Talmo's helper sees of it.
// Ends with 0 only if every press did to the player what the key says, and with a picture of the
// desktop beside the program.
#include <chrono>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <signal.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/desktop/HelperView.h"
#include "tests/support/DesktopPlayer.h"
#include "tests/support/FocusWindow.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/TalmoProcess.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

const std::filesystem::path talmoProgram = TALMO_PROGRAM;
constexpr std::chrono::milliseconds patience = 20s;

volatile sig_atomic_t interrupted = 0;

/// So that Ctrl-C takes the desktop down in order.
void stopAtInterruption() {
  struct sigaction action = {};
  action.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

/// What a person sees of a player.
struct Sight {
  std::string status;
  std::string track;

  bool operator==(const Sight&) const = default;

  friend std::ostream& operator<<(std::ostream& stream, const Sight& sight) {
    return stream << sight.status << ", " << sight.track;
  }
};

Sight look(DesktopPlayer& player) {
  return {player.mpris().playbackStatus(), player.mpris().track()};
}

/// Whether the helper sees that the player does this. A player that is paused has the session only
/// if it was the last to start.
bool sees(const std::optional<AdapterNowPlayingSnapshot>& snapshot, const DesktopPlayer& player,
          const Sight& sight) {
  const bool isPlaying = sight.status == "Playing";
  if (!snapshot) return false;
  if (snapshot->bundleID != player.bundleID()) return !isPlaying;
  return snapshot->isPlaying == isPlaying && snapshot->artwork &&
         snapshot->title == std::filesystem::path(sight.track).stem();
}

struct Press {
  const char* what;
  const char* keysym;
  /// What Talmo calls the key in its log.
  const char* logged;
  Sight expected;
};

class Show {
 public:
  Show()
      : tunes_(writeTunesWithCover(desktop_.folder() / "Tunes" / "Sine waves")),
        vlc_(DesktopPlayer::startVlc(desktop_, tunes_)),
        audacious_(DesktopPlayer::startAudacious(desktop_, tunes_)),
        window_(desktop_.displayName(), {.title = "Somebody else's window", .width = 360}),
        keys_(desktop_.displayName()),
        helper_(desktop_, talmoProgram.parent_path()) {
    std::cout << "A desktop of its own: display " << desktop_.displayName()
              << ", window manager, session bus, sound server\n";
    for (DesktopPlayer* player : {vlc_.get(), audacious_.get()}) {
      std::cout << "  " << std::left << std::setw(10) << player->displayName() << look(*player)
                << '\n';
    }
  }

  /// Whether everything went as it should.
  bool run() {
    bool good = showPlayer(*vlc_, *audacious_);
    good = showPlayer(*audacious_, *vlc_) && good;
    takePicture();
    return good;
  }

 private:
  static std::vector<std::filesystem::path> writeTunesWithCover(
      const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> tunes = writeTunes(folder);
    writeCover(folder);
    return tunes;
  }

  /// Drives `player`, to which Talmo is pinned; `other` has to stay as it is.
  bool showPlayer(DesktopPlayer& player, DesktopPlayer& other) {
    std::cout << "\nTalmo, pinned to " << player.displayName() << '\n';
    TalmoProcess::select(desktop_, player.id());
    TalmoProcess talmo(desktop_, talmoProgram);
    printNewLines(talmo, 0);
    const Sight otherBefore = look(other);
    window_.focus();

    const std::string first = tunes_[0].filename();
    const std::string second = tunes_[1].filename();
    bool good = look(player) == Sight{"Playing", first};
    for (const Press& press : std::vector<Press>{
             {"play/pause", "XF86AudioPlay", "playPause", {"Paused", first}},
             {"play/pause", "XF86AudioPlay", "playPause", {"Playing", first}},
             {"next", "XF86AudioNext", "next", {"Playing", second}},
             {"previous", "XF86AudioPrev", "previous", {"Playing", first}},
         }) {
      good = showPress(talmo, player, press) && good;
    }

    // The focused window gets what is typed and, before that, nothing.
    keys_.tap("a");
    waitUntil([this] { return window_.transcript().ends_with("-a"); }, patience);
    const bool windowLeftAlone = window_.transcript() == "+a -a";
    std::cout << "  The window in front got none of these keys: " << verdict(windowLeftAlone)
              << '\n';
    window_.clear();
    const bool otherLeftAlone = look(other) == otherBefore;
    std::cout << "  " << other.displayName() << " was left alone (" << look(other)
              << "): " << verdict(otherLeftAlone) << '\n';

    talmo.process().signal(SIGTERM);
    const bool ended = talmo.process().waitForExit(patience) == 0;
    std::cout << "  Talmo ended when it was asked to: " << verdict(ended) << '\n';
    return good && windowLeftAlone && otherLeftAlone && ended;
  }

  bool showPress(TalmoProcess& talmo, DesktopPlayer& player, const Press& press) {
    if (interrupted != 0) throw std::runtime_error("interrupted");
    const std::size_t logged = talmo.log().size();
    const std::string keyLine = std::string("media key: ") + press.logged + " down";
    const std::size_t keyLines = talmo.lines(keyLine).size();
    const Sight before = look(player);
    std::cout << "  Press " << press.what << " (" << press.keysym << ")\n";

    const auto start = std::chrono::steady_clock::now();
    keys_.tap(press.keysym);
    const bool reacted = waitUntil(
        [&] { return look(player) == press.expected || interrupted != 0; }, patience, 1ms);
    const auto time = std::chrono::steady_clock::now() - start;
    const bool good = reacted && talmo.waitForLines(keyLine, keyLines + 1);
    if (interrupted != 0) throw std::runtime_error("interrupted");

    printNewLines(talmo, logged);
    std::cout << "      " << std::left << std::setw(10) << player.displayName() << before
              << "  ->  " << look(player) << "  (" << time / 1ms << " ms): " << verdict(good)
              << std::endl;
    return showHelper(player, press.expected) && good;
  }

  /// Prints what the helper sees, once that is what `player` does.
  bool showHelper(const DesktopPlayer& player, const Sight& expected) {
    std::optional<AdapterNowPlayingSnapshot> snapshot;
    const bool good = waitUntil(
        [&] {
          snapshot = helper_.look();
          return sees(snapshot, player, expected) || interrupted != 0;
        },
        patience);
    std::cout << "      Helper    ";
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

  /// What Talmo has logged from an offset on.
  static void printNewLines(const TalmoProcess& talmo, std::size_t from) {
    const std::string log = talmo.log();
    std::size_t start = std::min(from, log.size());
    while (start < log.size()) {
      const std::size_t end = std::min(log.find('\n', start), log.size());
      std::cout << "      Talmo     " << log.substr(start, end - start) << '\n';
      start = end + 1;
    }
  }

  void takePicture() {
    const std::filesystem::path file = talmoProgram.parent_path() / "talmo-show.png";
    const auto import = desktop_.start({"import", "-window", "root", file.string()});
    if (import->waitForExit(patience) == 0) {
      std::cout << "\nA picture of the desktop: " << file.string() << '\n';
    } else {
      std::cout << "\nNo picture of the desktop: " << import->output() << '\n';
    }
  }

  static const char* verdict(bool good) { return good ? "yes" : "NO"; }

  PrivateDesktop desktop_;
  std::vector<std::filesystem::path> tunes_;
  std::unique_ptr<DesktopPlayer> vlc_;
  std::unique_ptr<DesktopPlayer> audacious_;
  FocusWindow window_;
  KeyPresser keys_;
  HelperView helper_;
};

}  // namespace
}  // namespace talmo::test

int main() {
  talmo::test::stopAtInterruption();
  try {
    const bool good = talmo::test::Show().run();
    std::cout << (good ? "Both players paused, resumed and skipped at the press of a key, and the "
                         "helper saw it.\n"
                       : "Not everything went as it should.\n");
    return good ? 0 : 1;
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << "talmo-show: " << error.what() << '\n';
    return 1;
  }
}
