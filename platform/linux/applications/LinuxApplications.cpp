#include "platform/linux/applications/LinuxApplications.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "platform/linux/applications/MprisNames.h"
#include "platform/linux/applications/ProcessTable.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// Virtual key codes (HIToolbox's Events.h) and the Command modifier (CGEventFlags).
constexpr std::uint16_t space = 49;
constexpr std::uint16_t leftArrow = 123;
constexpr std::uint16_t rightArrow = 124;
constexpr std::uint64_t command = 0x100000;

// X11/XF86keysym.h
constexpr std::uint32_t audioPlay = 0x1008FF14;
constexpr std::uint32_t audioPrev = 0x1008FF16;
constexpr std::uint32_t audioNext = 0x1008FF17;

// The desktop entries are those of the distributions' packages, the vendors' own, Flathub's and the
// Snap store's (with the package's name in front).
std::vector<LinuxApplication> makeTable() {
  return {
      {.bundleID = "com.spotify.client",
       .displayName = "Spotify",
       .desktopIDs = {"spotify", "com.spotify.Client", "spotify_spotify"},
       .playerNames = {"spotify"},
       .executables = {"spotify"},
       .windowClasses = {"spotify"}},
      {.bundleID = "com.tidal.desktop",
       .displayName = "TIDAL",
       .desktopIDs = {"tidal-hifi", "com.mastermindzh.tidal-hifi", "tidal-hifi_tidal-hifi"},
       .playerNames = {"tidal-hifi"},
       .executables = {"tidal-hifi"},
       .windowClasses = {"tidal-hifi"}},
      {.bundleID = "com.deezer.deezer-desktop",
       .displayName = "Deezer",
       .desktopIDs = {"deezer-desktop", "deezer", "dev.aunetx.deezer", "org.duzda.deezer-enhanced"},
       .playerNames = {"deezer", "Deezer"},
       .executables = {"deezer-desktop", "deezer", "deezer-enhanced"},
       .windowClasses = {"deezer", "deezer-desktop", "deezer-enhanced"}},
      {.bundleID = "tv.plex.plexamp",
       .displayName = "Plexamp",
       .desktopIDs = {"plexamp", "com.plexamp.Plexamp", "plexamp_plexamp"},
       .playerNames = {"Plexamp", "plexamp"},
       .executables = {"plexamp", "Plexamp"},
       .windowClasses = {"plexamp"}},
      {.bundleID = "org.videolan.vlc",
       .displayName = "VLC",
       .desktopIDs = {"vlc", "org.videolan.VLC", "vlc_vlc"},
       .playerNames = {"vlc"},
       .executables = {"vlc"},
       .windowClasses = {"vlc"},
       // An unfocused window takes a bare space only now and then, and a media key always.
       .strokeExceptions = {{space, 0, audioPlay},
                            {rightArrow, command, audioNext},
                            {leftArrow, command, audioPrev}}},
      {.bundleID = "com.github.th-ch.youtube-music",
       .displayName = "YouTube Music",
       .desktopIDs = {"youtube-music", "com.github.th_ch.youtube_music"},
       .playerNames = {"YoutubeMusic", "youtube-music"},
       .executables = {"youtube-music"},
       .windowClasses = {"youtube-music", "com.github.th_ch.youtube_music", "youtube music"}},
      {.bundleID = "org.gnome.Rhythmbox3",
       .displayName = "Rhythmbox",
       .localPlayerID = "rhythmbox",
       .desktopIDs = {"org.gnome.Rhythmbox3", "rhythmbox"},
       .playerNames = {"rhythmbox"},
       .executables = {"rhythmbox"},
       .windowClasses = {"rhythmbox", "org.gnome.rhythmbox3"}},
      {.bundleID = "org.strawberrymusicplayer.strawberry",
       .displayName = "Strawberry",
       .localPlayerID = "strawberry",
       .desktopIDs = {"org.strawberrymusicplayer.strawberry", "strawberry",
                      "strawberry_strawberry"},
       .playerNames = {"strawberry"},
       .executables = {"strawberry"},
       .windowClasses = {"strawberry"}},
      {.bundleID = "org.atheme.audacious",
       .displayName = "Audacious",
       .localPlayerID = "audacious",
       .desktopIDs = {"audacious", "org.atheme.audacious"},
       .playerNames = {"audacious"},
       .executables = {"audacious"},
       .windowClasses = {"audacious"}},
      {.bundleID = "io.mpv.Mpv",
       .displayName = "mpv",
       .localPlayerID = "mpv",
       .desktopIDs = {"mpv", "io.mpv.Mpv"},
       .playerNames = {"mpv"},
       .executables = {"mpv"},
       .windowClasses = {"mpv"}},
      {.bundleID = "org.clementine_player.Clementine",
       .displayName = "Clementine",
       .localPlayerID = "clementine",
       .desktopIDs = {"org.clementine_player.Clementine", "clementine"},
       .playerNames = {"clementine"},
       .executables = {"clementine"},
       .windowClasses = {"clementine"}},
      // No media players, whatever plays in them.
      {.bundleID = "com.google.Chrome",
       .displayName = "Google Chrome",
       .desktopIDs = {"google-chrome", "com.google.Chrome", "chromium", "chromium-browser",
                      "org.chromium.Chromium", "chromium_chromium"},
       .sessionNames = {"chrome", "chromium"},
       .executables = {"chrome", "chromium"},
       .profileFolders = {"google-chrome", "chromium"},
       .windowClasses = {"google-chrome", "chromium", "chromium-browser"}},
      {.bundleID = "com.google.Chrome.beta",
       .displayName = "Google Chrome Beta",
       .desktopIDs = {"google-chrome-beta"},
       .executables = {"chrome-beta/chrome"},
       .profileFolders = {"google-chrome-beta"},
       .windowClasses = {"google-chrome-beta"}},
      {.bundleID = "com.google.Chrome.dev",
       .displayName = "Google Chrome Dev",
       .desktopIDs = {"google-chrome-unstable", "com.google.ChromeDev"},
       .executables = {"chrome-unstable/chrome"},
       .profileFolders = {"google-chrome-unstable"},
       .windowClasses = {"google-chrome-unstable"}},
      {.bundleID = "com.brave.Browser",
       .displayName = "Brave",
       .desktopIDs = {"brave-browser", "com.brave.Browser", "brave_brave"},
       .sessionNames = {"brave"},
       .executables = {"brave"},
       .profileFolders = {"BraveSoftware/Brave-Browser"},
       .windowClasses = {"brave-browser"}},
      {.bundleID = "com.brave.Browser.beta",
       .displayName = "Brave Beta",
       .desktopIDs = {"brave-browser-beta"},
       .executables = {"brave-beta/brave"},
       .profileFolders = {"BraveSoftware/Brave-Browser-Beta"},
       .windowClasses = {"brave-browser-beta"}},
      {.bundleID = "com.brave.Browser.nightly",
       .displayName = "Brave Nightly",
       .desktopIDs = {"brave-browser-nightly"},
       .executables = {"brave-nightly/brave"},
       .profileFolders = {"BraveSoftware/Brave-Browser-Nightly"},
       .windowClasses = {"brave-browser-nightly"}},
      {.bundleID = "com.microsoft.edgemac",
       .displayName = "Microsoft Edge",
       .desktopIDs = {"microsoft-edge", "com.microsoft.Edge"},
       .sessionNames = {"edge"},
       .executables = {"msedge"},
       .profileFolders = {"microsoft-edge"},
       .windowClasses = {"microsoft-edge"}},
      {.bundleID = "com.microsoft.edgemac.Beta",
       .displayName = "Microsoft Edge Beta",
       .desktopIDs = {"microsoft-edge-beta"},
       .executables = {"msedge-beta/msedge"},
       .profileFolders = {"microsoft-edge-beta"},
       .windowClasses = {"microsoft-edge-beta"}},
      {.bundleID = "com.vivaldi.Vivaldi",
       .displayName = "Vivaldi",
       .desktopIDs = {"vivaldi-stable", "com.vivaldi.Vivaldi"},
       .sessionNames = {"vivaldi"},
       .executables = {"vivaldi-bin"},
       .profileFolders = {"vivaldi"},
       .windowClasses = {"vivaldi-stable"}},
      {.bundleID = "com.operasoftware.Opera",
       .displayName = "Opera",
       .desktopIDs = {"opera", "com.opera.Opera", "opera_opera"},
       .executables = {"opera"},
       .profileFolders = {"opera"},
       .windowClasses = {"opera"}},
  };
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return result;
}

bool contains(const std::vector<std::string_view>& list, std::string_view text) {
  return std::ranges::find(list, text) != list.end();
}

bool isEndOfPath(std::string_view end, std::string_view path) {
  if (!path.ends_with(end)) return false;
  path.remove_suffix(end.size());
  return path.empty() || path.ends_with('/');
}

template <class Condition>
const LinuxApplication* find(Condition condition) {
  const std::vector<LinuxApplication>& all = LinuxApplications::all();
  const auto found = std::ranges::find_if(all, condition);
  return found == all.end() ? nullptr : &*found;
}

bool isInstance(const LinuxApplication& application, ProcessIdentifier process) {
  if (LinuxApplications::withExecutable(ProcessTable::executable(process)) == &application) {
    return true;
  }
  const Uptime deadline = std::chrono::steady_clock::now() + 1s;
  const auto names = mprisNames(application, deadline);
  if (!names || names->empty()) return false;
  const std::vector<ProcessIdentifier> owners = mprisProcesses(*names, deadline);
  return std::ranges::find(owners, process) != owners.end();
}

}  // namespace

const std::vector<LinuxApplication>& LinuxApplications::all() {
  static const std::vector<LinuxApplication> table = makeTable();
  return table;
}

const LinuxApplication* LinuxApplications::withBundleID(std::string_view bundleID) {
  return find([&](const LinuxApplication& row) { return row.bundleID == bundleID; });
}

const LinuxApplication* LinuxApplications::withWindowClass(std::string_view windowClass) {
  const std::string lower = lowerCase(windowClass);
  return find([&](const LinuxApplication& row) { return contains(row.windowClasses, lower); });
}

const LinuxApplication* LinuxApplications::withExecutable(std::string_view executable) {
  const LinuxApplication* best = nullptr;
  std::size_t bestLength = 0;
  for (const LinuxApplication& row : all()) {
    for (const std::string_view one : row.executables) {
      // One with its folder is longer than the file name alone.
      if (one.size() > bestLength && isEndOfPath(one, executable)) {
        best = &row;
        bestLength = one.size();
      }
    }
  }
  return best;
}

std::vector<ProcessIdentifier> LinuxApplications::processes(const LinuxApplication& application) {
  std::vector<ProcessIdentifier> found = ProcessTable::running(
      [&](std::string_view path) { return withExecutable(path) == &application; });
  ProcessTable::sortByAge(found);
  return found;
}

std::vector<LocalPlayer> LinuxApplications::localPlayers() {
  std::vector<LocalPlayer> players;
  for (const LinuxApplication& row : all()) {
    if (row.localPlayerID.empty()) continue;
    players.push_back({.id = std::string(row.localPlayerID),
                       .displayName = std::string(row.displayName),
                       .bundleID = std::string(row.bundleID)});
  }
  return players;
}

std::optional<std::uint32_t> LinuxApplications::strokeException(const KeyboardEvent& event,
                                                                ProcessIdentifier process) {
  for (const LinuxApplication& row : all()) {
    const auto exception =
        std::ranges::find_if(row.strokeExceptions, [&](const StrokeException& one) {
          return one.keyCode == event.keyCode && one.flags == event.flags;
        });
    if (exception != row.strokeExceptions.end() && isInstance(row, process)) {
      return exception->keysym;
    }
  }
  return std::nullopt;
}

}  // namespace talmo
