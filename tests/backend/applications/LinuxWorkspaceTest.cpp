#include "tests/backend/applications/LinuxWorkspaceTest.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "platform/linux/applications/ProcessTable.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Processes = std::vector<ProcessIdentifier>;

// The process table is the whole machine's: every test that looks there has an application of its
// own, so that they may run beside each other and beside real players.
constexpr const char* audacious = "org.atheme.audacious";
constexpr const char* clementine = "org.clementine_player.Clementine";
constexpr const char* deezer = "com.deezer.deezer-desktop";
constexpr const char* plexamp = "tv.plex.plexamp";
constexpr const char* rhythmbox = "org.gnome.Rhythmbox3";
constexpr const char* strawberry = "org.strawberrymusicplayer.strawberry";
constexpr const char* tidal = "com.tidal.desktop";
constexpr const char* vlc = "org.videolan.vlc";
constexpr const char* youTubeMusic = "com.github.th-ch.youtube-music";
constexpr const char* chrome = "com.google.Chrome";

/// A program of the system under another name.
std::string copyOf(const std::string& program, const std::string& name) {
  const std::filesystem::path copy = PrivateData::scratch() / name;
  std::filesystem::copy_file(program, copy);
  return copy;
}

TestProcess::Start sleeping(const std::string& program) {
  return {.arguments = {program, "60"}};
}

/// Waits until the process runs the program, and not what it was forked from.
void waitForProgram(const TestProcess& process, const std::string& program) {
  ASSERT_TRUE(waitUntil([&] {
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/" + std::to_string(process.pid()) + "/exe",
                                         ignored) == program;
  }));
}

TEST_F(LinuxWorkspaceTest, AnEntryThatIsHiddenOrLacksItsProgramDoesNotCount) {
  const std::string name = "Name=VLC\nExec=true\n";
  PrivateData::install("vlc", name);
  ASSERT_NE(workspace().urlForApplication(vlc), std::nullopt);
  PrivateData::uninstall("vlc");
  for (const char* line : {"Hidden=true\n", "TryExec=no-such-program-as-this\n"}) {
    const std::filesystem::path file = PrivateData::dataHome() / "applications" / "vlc.desktop";
    std::ofstream(file) << "[Desktop Entry]\nType=Application\n" << name << line;
    // What was written later is there, so this one would be, too.
    PrivateData::install("marker", "Name=Marker\nExec=true\n");
    EXPECT_EQ(workspace().urlForApplication(vlc), std::nullopt) << line;
    PrivateData::uninstall("marker");
  }
}

TEST_F(LinuxWorkspaceTest, TheFirstInstalledEntryOfAnApplicationIsItsURL) {
  const std::string folder = "file://" + (PrivateData::dataHome() / "applications").string();
  PrivateData::install("org.videolan.VLC", "Name=VLC of Flathub\nExec=true\n");
  EXPECT_EQ(workspace().urlForApplication(vlc), folder + "/org.videolan.VLC.desktop");
  PrivateData::install("vlc", "Name=VLC\nExec=true\n");
  EXPECT_EQ(workspace().urlForApplication(vlc), folder + "/vlc.desktop");
  PrivateData::install("chromium", "Name=Chromium\nExec=true\n");
  EXPECT_EQ(workspace().urlForApplication(chrome), folder + "/chromium.desktop");
}

TEST_F(LinuxWorkspaceTest, TheNameIsInThePersonsLanguage) {
  PrivateData::install("vlc", "Name=Player\nName[de]=Spieler\nExec=true\n");
  const FakePlayerProcess player("vlc");
  ASSERT_EQ(workspace().runningApplications(vlc).size(), 1U);
  EXPECT_EQ(workspace().runningApplications(vlc)[0].localizedName, "Player");
  ::setenv("LANGUAGE", "de", 1);
  EXPECT_EQ(workspace().runningApplications(vlc)[0].localizedName, "Spieler");
  ::unsetenv("LANGUAGE");
}

TEST_F(LinuxWorkspaceTest, AnInstanceIsFoundByItsWindow) {
  FakeWindowManager& windows = windowManager();
  const TestProcess process(sleeping("sleep"));
  EXPECT_EQ(processes(deezer), Processes{});
  windows.add("deezer", process.pid());
  windows.add("Deezer", process.pid());
  windows.add("deezer", 0);
  windows.add("plexamp", ::getpid());
  EXPECT_EQ(processes(deezer), Processes{process.pid()});
  EXPECT_EQ(processes(plexamp), Processes{::getpid()});
}

TEST_F(LinuxWorkspaceTest, AWindowOfAProcessThatIsNotThereIsNoInstance) {
  pid_t ended = 0;
  {
    TestProcess process(sleeping("sleep"));
    ended = process.pid();
    process.end();
  }
  windowManager().add("deezer", ended);
  EXPECT_EQ(processes(deezer), Processes{});
}

TEST_F(LinuxWorkspaceTest, AnInstanceIsFoundByItsProgram) {
  EXPECT_EQ(processes(strawberry), Processes{});
  const std::string program = copyOf("/usr/bin/sleep", "strawberry");
  const TestProcess first(sleeping(program));
  const TestProcess second(sleeping(program));
  waitForProgram(first, program);
  waitForProgram(second, program);
  EXPECT_EQ(processes(strawberry), (Processes{first.pid(), second.pid()}));
  // An update has replaced the program meanwhile.
  std::filesystem::remove(program);
  EXPECT_EQ(ProcessTable::executable(first.pid()), program);
  EXPECT_EQ(processes(strawberry), (Processes{first.pid(), second.pid()}));
}

TEST_F(LinuxWorkspaceTest, AnInstanceThatIsAScriptIsFoundByItsNameUntilItEnds) {
  const std::filesystem::path script = PrivateData::scratch() / "clementine";
  // It waits for a signal.
  std::ofstream(script) << "#!/bin/sh\nkill -STOP $$\n";
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  const TestProcess process({.arguments = {script}});
  const auto waitForState = [&](const std::string& state) {
    return waitUntil([&] {
      std::ifstream stream("/proc/" + std::to_string(process.pid()) + "/stat");
      std::string line;
      std::getline(stream, line);
      return line.find("(clementine) " + state + " ") != std::string::npos;
    });
  };
  ASSERT_TRUE(waitForState("T"));
  EXPECT_EQ(processes(clementine), Processes{process.pid()});
  // Nobody asks for its status when it has ended, so it stays in the process table.
  process.signal(SIGCONT);
  ASSERT_TRUE(waitForState("Z"));
  EXPECT_EQ(processes(clementine), Processes{});
}

TEST_F(LinuxWorkspaceTest, TheHelpersOfAnInstanceAreNoInstances) {
  const std::string program = copyOf("/bin/sh", "rhythmbox");
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  {
    // Both end when the pipe does.
    const TestProcess process(
        {.arguments = {program, "-c", "\"$0\" -c 'echo ready; read x <&3' & read x <&3", program},
         .descriptor3 = pipe[0]});
    ASSERT_TRUE(waitUntil([&] { return process.output() == "ready\n"; })) << process.output();
    EXPECT_EQ(processes(rhythmbox), Processes{process.pid()});
    ::close(pipe[1]);
  }
  ::close(pipe[0]);
}

TEST_F(LinuxWorkspaceTest, TheBusComesBeforeWindowsAndTheseBeforePrograms) {
  const std::string program = copyOf("/usr/bin/sleep", "tidal-hifi");
  const TestProcess byProgram(sleeping(program));
  waitForProgram(byProgram, program);
  const TestProcess byWindow(sleeping("sleep"));
  EXPECT_EQ(processes(tidal), Processes{byProgram.pid()});
  windowManager().add("tidal-hifi", byWindow.pid());
  EXPECT_EQ(processes(tidal), Processes{byWindow.pid()});
  const FakePlayerProcess byName("tidal-hifi");
  EXPECT_EQ(processes(tidal), Processes{byName.pid()});
}

TEST_F(LinuxWorkspaceTest, WithoutABusAndADisplayProgramsAreFound) {
  bus().daemon().end();
  ::setenv("DISPLAY", ":59999", 1);
  const std::string program = copyOf("/usr/bin/sleep", "youtube-music");
  const TestProcess process(sleeping(program));
  waitForProgram(process, program);
  EXPECT_EQ(processes(youTubeMusic), Processes{process.pid()});
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
}

TEST_F(LinuxWorkspaceTest, AnApplicationInFrontIsKnownByItsClassOrItsProgram) {
  FakeWindowManager& windows = windowManager();
  windows.activate(windows.add("Chromium", 0));
  EXPECT_EQ(workspace().frontmostApplication(), chrome);
  const std::string program = copyOf("/usr/bin/sleep", "audacious");
  const TestProcess process(sleeping(program));
  waitForProgram(process, program);
  windows.activate(windows.add("a class of its own", process.pid()));
  EXPECT_EQ(workspace().frontmostApplication(), audacious);
}

TEST_F(LinuxWorkspaceTest, AnotherApplicationInFrontIsKnownByItsEntry) {
  FakeWindowManager& windows = windowManager();
  windows.activate(windows.add("org.example.Editor", 0));
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
  PrivateData::install("org.example.Editor", "Name=Editor\nExec=true\n");
  EXPECT_EQ(workspace().frontmostApplication(), "org.example.Editor");
  PrivateData::install("org.example.Browser",
                       "Name=Browser\nExec=true\nStartupWMClass=Navigator\n");
  windows.activate(windows.add("Navigator", 0));
  EXPECT_EQ(workspace().frontmostApplication(), "org.example.Browser");
}

TEST_F(LinuxWorkspaceTest, ADisplayThatWentAwayHasNothingInFront) {
  FakeWindowManager& windows = windowManager();
  windows.activate(windows.add("deezer", ::getpid()));
  ASSERT_EQ(workspace().frontmostApplication(), deezer);
  display().server().end();
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
  EXPECT_EQ(processes(deezer), Processes{});
}

}  // namespace
}  // namespace talmo::test
