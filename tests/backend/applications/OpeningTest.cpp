#include <atomic>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <unistd.h>

#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/applications/GlibHandles.h"
#include "tests/backend/applications/ActivatedApplication.h"
#include "tests/backend/applications/LinuxWorkspaceTest.h"
#include "tests/backend/applications/RecordedStart.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Arguments = std::vector<std::string>;
using Lines = std::vector<std::string>;

constexpr const char* vlc = "org.videolan.vlc";
constexpr const char* rhythmbox = "org.gnome.Rhythmbox3";

/// Characters that mean something to a shell, to desktop entries or to URLs.
constexpr const char* awkward = R"(it's "a" $(touch pwned); `touch pwned` & \ #1?)";

/// Blocks a signal for the test, before any thread starts that would take the block over.
class WithBlockedSignal {
 public:
  WithBlockedSignal() {
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before_);
  }
  ~WithBlockedSignal() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  WithBlockedSignal(const WithBlockedSignal&) = delete;
  WithBlockedSignal& operator=(const WithBlockedSignal&) = delete;

 private:
  sigset_t before_{};
};

class OpeningTest : private WithBlockedSignal, public LinuxWorkspaceTest {
 protected:
  /// An Exec line for the recording program that writes to `file`.
  static std::string exec(const std::filesystem::path& file, const std::string& rest = "",
                          const std::string& program = RecordedStart::program()) {
    return "Exec=" + PrivateData::quoted(program) + " " + PrivateData::quoted(file) + " " + rest +
           "\n";
  }

  void open(const std::string& bundleID) {
    workspace().openApplication(workspace().urlForApplication(bundleID).value());
  }

  /// Opens a new instance and waits for what comes of it.
  std::optional<std::string> openNewInstance(const std::string& url) {
    std::atomic<int> calls = 0;
    std::optional<std::string> result;
    workspace().openNewInstance(url, [&](const std::optional<std::string>& error) {
      result = error;
      ++calls;
    });
    EXPECT_TRUE(waitUntil([&] { return calls == 1; }));
    return result;
  }

  std::filesystem::path file(const std::string& name = "start.json") {
    return PrivateData::scratch() / name;
  }

  /// Waits until GIO, which watches the list of default applications, has one for the URL.
  static void waitForHandler(const std::string& url) {
    ASSERT_TRUE(waitUntil([&] { return DesktopEntry::defaultForURL(url).has_value(); }));
  }

  /// Opens a program and waits for it: one that was opened before has been there by then.
  void settle() {
    PrivateData::install("vlc", "Name=VLC\n" + exec(file("later.json")));
    open(vlc);
    const RecordedStart later(file("later.json"));
  }
};

/// Whether a process of ours has ended and waits for us to ask for its status.
bool hasZombies() {
  for (const auto& folder : std::filesystem::directory_iterator("/proc")) {
    if (folder.path().filename().string().find_first_not_of("0123456789") != std::string::npos) {
      continue;
    }
    std::ifstream stream(folder.path() / "stat");
    const std::string text{std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>()};
    const std::size_t end = text.rfind(')');
    if (end == std::string::npos) continue;
    const std::string zombieOfOurs = ") Z " + std::to_string(::getpid()) + " ";
    if (text.compare(end, zombieOfOurs.size(), zombieOfOurs) == 0) return true;
  }
  return false;
}

TEST_F(OpeningTest, ArgumentsArriveAsTheyAreWritten) {
  const std::filesystem::path folder = PrivateData::scratch() / awkward;
  std::filesystem::create_directory(folder);
  const std::filesystem::path program = folder / "the player; really";
  std::filesystem::copy_file(RecordedStart::program(), program);
  PrivateData::install(
      "vlc", "Name=VLC\n" + exec(folder / "start.json",
                                 PrivateData::quoted(std::string(awkward) + "100%") + " " +
                                     PrivateData::quoted("") + " %U",
                                 program));
  open(vlc);
  const RecordedStart start(folder / "start.json");
  EXPECT_EQ(start.arguments,
            (Arguments{program, folder / "start.json", std::string(awkward) + "100%", ""}));
  EXPECT_FALSE(std::filesystem::exists("pwned"));
}

TEST_F(OpeningTest, AnEntryInAFolderWithAnAwkwardNameIsOpened) {
  const std::filesystem::path folder = PrivateData::scratch() / awkward;
  std::filesystem::create_directory(folder);
  std::ofstream(folder / "player.desktop") << "[Desktop Entry]\nType=Application\nName=Player\n"
                                           << exec(file());
  const GlibText url(g_filename_to_uri((folder / "player.desktop").c_str(), nullptr, nullptr));
  workspace().openApplication(url.get());
  EXPECT_EQ(RecordedStart(file()).arguments, (Arguments{RecordedStart::program(), file()}));
}

TEST_F(OpeningTest, WhatIsOpenedStandsOnItsOwn) {
  const int leaked = ::open("/dev/zero", O_RDONLY);
  ASSERT_GE(leaked, 3);
  PrivateData::install("vlc", "Name=VLC\n" + exec(file()));
  open(vlc);
  RecordedStart start(file());
  ::close(leaked);
  EXPECT_EQ(start.session, start.process);
  EXPECT_NE(start.parent, ::getpid());
  EXPECT_EQ(start.descriptors, (std::map<std::string, std::string>{
                                   {"0", "/dev/null"}, {"1", "/dev/null"}, {"2", "/dev/null"}}));
  EXPECT_EQ(start.blockedSignals, std::vector<int>{});
  start.end();
  EXPECT_FALSE(hasZombies());
}

TEST_F(OpeningTest, ApplicationsAreOpenedOnANewBusAndWithoutOne) {
  PrivateData::install("vlc", "Name=VLC\n" + exec(file()));
  open(vlc);
  {
    const RecordedStart start(file());
  }
  std::filesystem::remove(file());
  startBus();
  open(vlc);
  {
    const RecordedStart start(file());
  }
  std::filesystem::remove(file());
  bus().daemon().end();
  open(vlc);
  const RecordedStart start(file());
  EXPECT_EQ(log().lines(), std::vector<SimulatedLog::Line>{});
}

TEST_F(OpeningTest, ABusThatGoesAwayAfterALaunchDoesNotEndTheProcess) {
  // The connection that GIO shares within the process, with the main loop that it belongs to.
  const GObjectHandle<GDBusConnection> shared(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  ASSERT_NE(shared, nullptr);
  bool isClosed = false;
  g_signal_connect(shared.get(), "closed",
                   G_CALLBACK(+[](GDBusConnection*, gboolean, GError*, gpointer data) {
                     *static_cast<bool*>(data) = true;
                   }),
                   &isClosed);
  PrivateData::install("vlc", "Name=VLC\n" + exec(file()));
  open(vlc);
  const RecordedStart start(file());
  bus().daemon().end();
  // Alive when the signal has been through, which is where the process would have ended.
  EXPECT_TRUE(waitUntil([&] {
    g_main_context_iteration(nullptr, FALSE);
    return isClosed;
  }));
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
}

TEST_F(OpeningTest, AnEntryThatCannotBeStartedIsLogged) {
  PrivateData::install("vlc", "Name=VLC\nPath=/no/such/folder\n" + exec(file()));
  const std::string url = workspace().urlForApplication(vlc).value();
  workspace().openApplication(url);
  ASSERT_TRUE(waitUntil([&] { return log().contains("opening " + url + " failed: "); }));
  EXPECT_EQ(log().messages(LogLevel::notice).size(), 1U);
  EXPECT_EQ(log().lines()[0].category, "workspace");
}

TEST_F(OpeningTest, AnEntryThatIsNotThereIsLogged) {
  workspace().openApplication("file:///no/such/player.desktop");
  EXPECT_TRUE(waitUntil(
      [&] { return log().contains("no application at file:///no/such/player.desktop"); }));
  workspace().openApplication("no URL at all");
  EXPECT_TRUE(waitUntil([&] { return log().contains("no application at no URL at all"); }));
}

TEST_F(OpeningTest, ANewInstanceOfAnEntryIsStartedBesideTheOneThatRuns) {
  PrivateData::install("vlc", "Name=VLC\n" + exec(file()));
  const std::string url = workspace().urlForApplication(vlc).value();
  EXPECT_EQ(openNewInstance(url), std::nullopt);
  const RecordedStart first(file());
  std::filesystem::remove(file());
  EXPECT_EQ(openNewInstance(url), std::nullopt);
  const RecordedStart second(file());
  EXPECT_NE(first.process, second.process);
}

TEST_F(OpeningTest, AProgramIsStartedWithoutArgumentsAndStandsOnItsOwn) {
  const std::filesystem::path folder = PrivateData::scratch() / awkward;
  std::filesystem::create_directory(folder);
  const std::filesystem::path program = folder / "program";
  std::ofstream(program) << "#!/bin/sh\n"
                            "echo $$ $(cut -d' ' -f6 /proc/$$/stat) $# > \"$0.draft\"\n"
                            "mv \"$0.draft\" \"$0.started\"\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const GlibText url(g_filename_to_uri(program.c_str(), nullptr, nullptr));
  EXPECT_EQ(openNewInstance(url.get()), std::nullopt);

  const std::filesystem::path started = folder / "program.started";
  ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(started); }));
  pid_t process = 0;
  pid_t session = 0;
  int arguments = -1;
  std::ifstream(started) >> process >> session >> arguments;
  EXPECT_NE(process, 0);
  EXPECT_EQ(session, process);
  EXPECT_EQ(arguments, 0);
  EXPECT_FALSE(std::filesystem::exists("pwned"));
  EXPECT_FALSE(hasZombies());
}

TEST_F(OpeningTest, AProgramThatIsNotThereIsLoggedAndToldOf) {
  const std::optional<std::string> error = openNewInstance("file:///no/such/program");
  ASSERT_TRUE(error);
  EXPECT_EQ(
      log().messages(LogLevel::notice),
      (Lines{"opening a new instance of file:///no/such/program failed: " + error.value_or("")}));
  EXPECT_TRUE(openNewInstance("no URL at all"));
}

TEST_F(OpeningTest, AnApplicationThatTheBusStartsIsActivatedThere) {
  const ActivatedApplication application(rhythmbox, "/org/gnome/Rhythmbox3");
  PrivateData::install(rhythmbox, "Name=Rhythmbox\nDBusActivatable=true\n" + exec(file()));
  open(rhythmbox);
  EXPECT_TRUE(waitUntil([&] { return application.activations() == 1; }));
  settle();
  EXPECT_FALSE(std::filesystem::exists(file()));
  EXPECT_EQ(log().messages(LogLevel::notice), Lines{});
}

TEST_F(OpeningTest, AnApplicationThatTheBusCannotStartIsLogged) {
  PrivateData::install(rhythmbox, "Name=Rhythmbox\nDBusActivatable=true\n" + exec(file()));
  open(rhythmbox);
  EXPECT_TRUE(waitUntil([&] {
    const Lines lines = log().messages(LogLevel::notice);
    return lines.size() == 1 && lines[0].find("Rhythmbox3.desktop failed: ") != std::string::npos;
  }));
}

TEST_F(OpeningTest, AURLGoesToTheHandlerOfItsScheme) {
  PrivateData::install("opener",
                       "Name=Opener\nMimeType=x-scheme-handler/talmo-test;\n" + exec(file(), "%u"));
  std::ofstream(PrivateData::configHome() / "mimeapps.list")
      << "[Default Applications]\nx-scheme-handler/talmo-test=opener.desktop\n";
  const std::string url = "talmo-test:it's?%20\"a\"&$(touch%20pwned);`touch`";
  waitForHandler(url);
  workspace().openURL(url);
  const RecordedStart start(file());
  EXPECT_EQ(start.arguments, (Arguments{RecordedStart::program(), file(), url}));
  EXPECT_EQ(start.session, start.process);
}

TEST_F(OpeningTest, AURLGoesOverTheBusToAHandlerThatIsThere) {
  const ActivatedApplication application("org.example.Opener-1", "/org/example/Opener_1");
  PrivateData::install("org.example.Opener-1",
                       "Name=Opener\nDBusActivatable=true\n"
                       "MimeType=x-scheme-handler/talmo-bus-test;\n" +
                           exec(file(), "%u"));
  const std::string url = "talmo-bus-test:it's?%20\"a\"";
  std::ofstream(PrivateData::configHome() / "mimeapps.list")
      << "[Default Applications]\nx-scheme-handler/talmo-bus-test=org.example.Opener-1.desktop\n";
  waitForHandler(url);
  workspace().openURL(url);
  ASSERT_TRUE(waitUntil([&] { return !application.opened().empty(); }));
  EXPECT_EQ(application.opened().front(), url);
  settle();
  EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(OpeningTest, APaneOfTheMacsSettingsIsTheSessionsOwnKeyboardSettings) {
  const std::string url =
      "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
  PrivateData::install("gnome-keyboard-panel", "Name=One\n" + exec(file("gnome"), "%u"));
  PrivateData::install("xfce-settings-manager", "Name=Two\n" + exec(file("manager"), "%u"));
  PrivateData::install("xfce-keyboard-settings", "Name=Three\n" + exec(file("xfce"), "%u"));
  ::setenv("XDG_CURRENT_DESKTOP", "somebody:XFCE", 1);
  workspace().openURL(url);
  const RecordedStart own(file("xfce"));
  EXPECT_EQ(own.arguments, (Arguments{RecordedStart::program(), file("xfce")}));

  // A session without a name has whichever settings there are.
  ::unsetenv("XDG_CURRENT_DESKTOP");
  workspace().openURL(url);
  const RecordedStart any(file("gnome"));
  EXPECT_EQ(any.arguments.size(), 2U);
  EXPECT_FALSE(std::filesystem::exists(file("manager")));
}

TEST_F(OpeningTest, AURLThatNothingOpensIsOneLineOfInformation) {
  const std::string url =
      "x-apple.systempreferences:com.apple.preference.security?Privacy_Automation";
  workspace().openURL(url);
  ASSERT_TRUE(waitUntil([&] { return !log().lines().empty(); }));
  workspace().openURL("not a URL");
  ASSERT_TRUE(waitUntil([&] { return log().lines().size() == 2; }));
  EXPECT_EQ(log().messages(LogLevel::info),
            (Lines{"no application opens " + url, "no application opens not a URL"}));
}

}  // namespace
}  // namespace talmo::test
