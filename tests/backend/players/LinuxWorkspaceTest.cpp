#include "tests/backend/players/LinuxWorkspaceTest.h"

#include <array>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "platform/linux/ProcessTable.h"
#include "tests/backend/players/PlayerProcess.h"
#include "tests/backend/players/RecentFile.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Processes = std::vector<ProcessIdentifier>;

constexpr const char* vlc = "org.videolan.vlc";
constexpr const char* strawberry = "org.strawberrymusicplayer.strawberry";
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
  const PlayerProcess player("vlc");
  ASSERT_EQ(workspace().runningApplications(vlc).size(), 1U);
  EXPECT_EQ(workspace().runningApplications(vlc)[0].localizedName, "Player");
  ::setenv("LANGUAGE", "de", 1);
  EXPECT_EQ(workspace().runningApplications(vlc)[0].localizedName, "Spieler");
  ::unsetenv("LANGUAGE");
}

TEST_F(LinuxWorkspaceTest, AnInstanceIsFoundByItsWindow) {
  FakeWindowManager& windows = windowManager();
  const TestProcess process(sleeping("sleep"));
  EXPECT_EQ(processes(vlc), Processes{});
  windows.add("vlc", process.pid());
  windows.add("Vlc", process.pid());
  windows.add("vlc", 0);
  windows.add("strawberry", ::getpid());
  EXPECT_EQ(processes(vlc), Processes{process.pid()});
  EXPECT_EQ(processes(strawberry), Processes{::getpid()});
}

TEST_F(LinuxWorkspaceTest, AWindowOfAProcessThatIsNotThereIsNoInstance) {
  pid_t ended = 0;
  {
    TestProcess process(sleeping("sleep"));
    ended = process.pid();
    process.end();
  }
  windowManager().add("vlc", ended);
  EXPECT_EQ(processes(vlc), Processes{});
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
  EXPECT_EQ(ProcessTable::executable(first.pid()), "strawberry");
  EXPECT_EQ(processes(strawberry), (Processes{first.pid(), second.pid()}));
}

TEST_F(LinuxWorkspaceTest, AnInstanceThatIsAScriptIsFoundByItsName) {
  const std::filesystem::path script = PrivateData::scratch() / "strawberry";
  // It waits for a signal.
  std::ofstream(script) << "#!/bin/sh\nkill -STOP $$\n";
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  const TestProcess process({.arguments = {script}});
  EXPECT_TRUE(waitUntil([&] { return processes(strawberry) == Processes{process.pid()}; }));
}

TEST_F(LinuxWorkspaceTest, AnInstanceThatHasEndedUnnoticedIsNone) {
  const std::filesystem::path script = PrivateData::scratch() / "strawberry";
  std::ofstream(script) << "#!/bin/sh\n";
  std::filesystem::permissions(script, std::filesystem::perms::owner_all);
  // Nobody asks for its status, so it stays in the process table.
  const TestProcess process({.arguments = {script}});
  const std::string status = "/proc/" + std::to_string(process.pid()) + "/stat";
  ASSERT_TRUE(waitUntil([&] {
    std::ifstream stream(status);
    std::string line;
    std::getline(stream, line);
    return line.find("(strawberry) Z ") != std::string::npos;
  }));
  EXPECT_EQ(processes(strawberry), Processes{});
}

TEST_F(LinuxWorkspaceTest, TheHelpersOfAnInstanceAreNoInstances) {
  const std::string program = copyOf("/bin/sh", "strawberry");
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
  {
    // Both end when the pipe does.
    const TestProcess process(
        {.arguments = {program, "-c", "\"$0\" -c 'echo ready; read x <&3' & read x <&3", program},
         .descriptor3 = pipe[0]});
    ASSERT_TRUE(waitUntil([&] { return process.output() == "ready\n"; })) << process.output();
    EXPECT_EQ(processes(strawberry), Processes{process.pid()});
    ::close(pipe[1]);
  }
  ::close(pipe[0]);
}

TEST_F(LinuxWorkspaceTest, TheBusComesBeforeWindowsAndTheseBeforePrograms) {
  const std::string program = copyOf("/usr/bin/sleep", "strawberry");
  const TestProcess byProgram(sleeping(program));
  waitForProgram(byProgram, program);
  const TestProcess byWindow(sleeping("sleep"));
  EXPECT_EQ(processes(strawberry), Processes{byProgram.pid()});
  windowManager().add("strawberry", byWindow.pid());
  EXPECT_EQ(processes(strawberry), Processes{byWindow.pid()});
  const PlayerProcess byName("strawberry");
  EXPECT_EQ(processes(strawberry), Processes{byName.pid()});
}

TEST_F(LinuxWorkspaceTest, WithoutABusAndADisplayProgramsAreFound) {
  bus().daemon().end();
  ::setenv("DISPLAY", ":59999", 1);
  const std::string program = copyOf("/usr/bin/sleep", "strawberry");
  const TestProcess process(sleeping(program));
  waitForProgram(process, program);
  EXPECT_EQ(processes(strawberry), Processes{process.pid()});
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
}

TEST_F(LinuxWorkspaceTest, AnApplicationInFrontIsKnownByItsClassOrItsProgram) {
  FakeWindowManager& windows = windowManager();
  windows.activate(windows.add("Chromium", 0));
  EXPECT_EQ(workspace().frontmostApplication(), chrome);
  const std::string program = copyOf("/usr/bin/sleep", "strawberry");
  const TestProcess process(sleeping(program));
  waitForProgram(process, program);
  windows.activate(windows.add("a class of its own", process.pid()));
  EXPECT_EQ(workspace().frontmostApplication(), strawberry);
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
  windows.activate(windows.add("vlc", ::getpid()));
  ASSERT_EQ(workspace().frontmostApplication(), vlc);
  display().server().end();
  EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
  EXPECT_EQ(processes(vlc), Processes{});
}

TEST_F(LinuxWorkspaceTest, TheLastUseIsThatOfTheEntrysNameOrProgram) {
  PrivateData::install("vlc", "Name=VLC media player\nExec=/usr/bin/env --ignored %U\n");
  const std::string url = workspace().urlForApplication(vlc).value();
  addToRecentFiles({.url = "file:///a",
                    .applicationName = "Somebody else",
                    .command = "true %u",
                    .when = Date(1'700'000'500s)});
  EXPECT_EQ(workspace().lastUsedDate(url), std::nullopt);
  addToRecentFiles({.url = "file:///a",
                    .applicationName = "env",
                    .command = "'/usr/bin/env' %u",
                    .when = Date(1'700'000'000s)});
  EXPECT_EQ(workspace().lastUsedDate(url), Date(1'700'000'000s));
  addToRecentFiles({.url = "file:///b",
                    .applicationName = "VLC media player",
                    .command = "unquoted ' %u",
                    .when = Date(1'700'000'100s)});
  EXPECT_EQ(workspace().lastUsedDate(url), Date(1'700'000'100s));
  addToRecentFiles({.url = "file:///c",
                    .applicationName = "VLC media player",
                    .command = "env %u",
                    .when = Date(1'600'000'000s)});
  EXPECT_EQ(workspace().lastUsedDate(url), Date(1'700'000'100s));
}

TEST_F(LinuxWorkspaceTest, ADamagedListOfRecentFilesIsNone) {
  PrivateData::install("vlc", "Name=VLC\nExec=true\n");
  std::ofstream(PrivateData::dataHome() / "recently-used.xbel") << "<xbel version=\"1.0\"><book";
  EXPECT_EQ(workspace().lastUsedDate(workspace().urlForApplication(vlc).value()), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
