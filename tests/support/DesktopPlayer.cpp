#include "tests/support/DesktopPlayer.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <unistd.h>
#include <utility>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 30s;
constexpr std::chrono::milliseconds pollInterval = 20ms;

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A copy of VLC's launcher whose question for the user id is answered with the parent's process
/// id, which is never root's.
std::filesystem::path vlcForRoot(const std::filesystem::path& folder) {
  const std::filesystem::path copy = folder / "bin" / "vlc";
  if (std::filesystem::exists(copy)) return copy;
  std::string program = readFile("/usr/bin/vlc");
  constexpr std::string_view asked = "geteuid";
  constexpr std::string_view answered = "getppid";
  const std::size_t place = program.find(asked);
  if (place == std::string::npos) throw std::runtime_error("VLC's launcher is not as expected");
  program.replace(place, asked.size(), answered);
  std::filesystem::create_directories(copy.parent_path());
  std::ofstream file(copy, std::ios::binary);
  file.write(program.data(), static_cast<std::streamsize>(program.size()));
  file.close();
  std::filesystem::permissions(copy, std::filesystem::perms::owner_all);
  return copy;
}

}  // namespace

std::vector<std::string> DesktopPlayer::vlcCommand(const PrivateDesktop& desktop) {
  const std::string program = ::geteuid() == 0 ? vlcForRoot(desktop.folder()).string() : "vlc";
  return {program,
          "--intf=qt",
          "--no-qt-privacy-ask",
          "--aout=pulse",
          "--loop",
          "--no-random",
          "--no-video",
          "--no-qt-error-dialogs",
          "--no-media-library",
          "--qt-continue=0"};
}

std::unique_ptr<DesktopPlayer> DesktopPlayer::startVlc(
    const PrivateDesktop& desktop, const std::vector<std::filesystem::path>& tunes) {
  std::vector<std::string> arguments = vlcCommand(desktop);
  arguments.insert(arguments.end(), tunes.begin(), tunes.end());
  return std::unique_ptr<DesktopPlayer>(
      new DesktopPlayer(desktop, "vlc", "VLC", "org.videolan.vlc", std::move(arguments)));
}

std::unique_ptr<DesktopPlayer> DesktopPlayer::startAudacious(
    const PrivateDesktop& desktop, const std::vector<std::filesystem::path>& tunes) {
  const std::filesystem::path folder = desktop.configFolder() / "audacious";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "config") << "[audacious]\nrepeat=TRUE\n";
  std::vector<std::string> arguments = {"audacious"};
  arguments.insert(arguments.end(), tunes.begin(), tunes.end());
  return std::unique_ptr<DesktopPlayer>(new DesktopPlayer(
      desktop, "audacious", "Audacious", "org.atheme.audacious", std::move(arguments)));
}

DesktopPlayer::DesktopPlayer(const PrivateDesktop& desktop, std::string id, std::string displayName,
                             std::string bundleID, std::vector<std::string> arguments)
    : id_(std::move(id)),
      displayName_(std::move(displayName)),
      bundleID_(std::move(bundleID)),
      process_(desktop.start(std::move(arguments))),
      mpris_(desktop.busAddress(), id_) {
  if (!waitForStatus("Playing")) {
    throw std::runtime_error(displayName_ + " does not play: " + process_->output());
  }
}

bool DesktopPlayer::waitForStatus(const std::string& status) {
  return waitUntil([&] { return mpris_.playbackStatus() == status; }, patience, pollInterval);
}

bool DesktopPlayer::waitForTrack(const std::string& fileName) {
  return waitUntil([&] { return mpris_.track() == fileName; }, patience, pollInterval);
}

}  // namespace talmo::test
