#include <filesystem>
#include <fstream>
#include <optional>
#include <stdlib.h>

#include <gtest/gtest.h>

#include "platform/linux/browsers/BrowserInstance.h"
#include "tests/backend/browsers/PretendedBrowser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Environment = std::map<std::string, std::string>;
using Instances = std::vector<BrowserInstance>;
using Options = std::vector<std::string>;

// Browsers that are not in use where tests run.
constexpr const char* vivaldi = "com.vivaldi.Vivaldi";
constexpr const char* brave = "com.brave.Browser";
constexpr const char* braveBeta = "com.brave.Browser.beta";

constexpr const char* withSocket = "--remote-debugging-port=0";

/// Processes that run a program with a browser's name, and profiles with notes of sockets.
class BrowserInstanceTest : public testing::Test {
 protected:
  PretendedBrowser start(const std::string& program, const Options& options,
                         const Environment& environment = {}) const {
    return PretendedBrowser(folder() / program, options, environment);
  }

  /// Leaves a note in a profile.
  DebuggingAddress note(const std::filesystem::path& profile, std::uint16_t port = 4711) {
    std::filesystem::create_directories(folder() / profile);
    std::ofstream(folder() / profile / "DevToolsActivePort") << port << "\n/browser";
    return {.port = port, .path = "/browser"};
  }

  /// Where the socket of the one instance should be.
  static std::optional<DebuggingAddress> socket(const char* bundleID) {
    const Instances found = browserInstances(bundleID);
    EXPECT_EQ(found.size(), 1U);
    return found.empty() ? std::nullopt : found.front().socket;
  }

  static std::string profileOption(const std::filesystem::path& profile) {
    return "--user-data-dir=" + profile.string();
  }

  const std::filesystem::path& folder() const { return folder_.path(); }

 private:
  TemporaryFolder folder_;
};

TEST_F(BrowserInstanceTest, OnlyBrowsersThatRunAreThere) {
  note("profile");
  EXPECT_EQ(browserInstances(vivaldi), Instances{});
  EXPECT_EQ(browserInstances("org.videolan.vlc"), Instances{});
  EXPECT_EQ(browserInstances("com.apple.Safari"), Instances{});
  EXPECT_EQ(browserInstances(""), Instances{});
}

TEST_F(BrowserInstanceTest, TheSocketIsNotedInTheProfileOfTheCommandLine) {
  const DebuggingAddress address = note("my profile");
  const auto process =
      start("vivaldi-bin", {withSocket, profileOption("/nowhere"),
                            profileOption(folder() / "my profile"), "https://example.com/"});
  EXPECT_EQ(browserInstances(vivaldi), (Instances{{.process = process.pid(), .socket = address}}));
}

TEST_F(BrowserInstanceTest, ABrowserThatWasNotStartedWithASocketHasNone) {
  note("profile");
  const std::string profile = profileOption(folder() / "profile");
  {
    const auto process = start("vivaldi-bin", {profile});
    EXPECT_EQ(socket(vivaldi), std::nullopt);
  }
  {
    const auto process = start("vivaldi-bin", {profile, "--remote-debugging-portal=0"});
    EXPECT_EQ(socket(vivaldi), std::nullopt);
  }
  const auto process = start("vivaldi-bin", {profile, "--", withSocket});
  EXPECT_EQ(socket(vivaldi), std::nullopt);
}

TEST_F(BrowserInstanceTest, ABrowserWithoutANoteHasNoSocket) {
  std::filesystem::create_directories(folder() / "profile");
  const auto process = start("vivaldi-bin", {withSocket, profileOption(folder() / "profile")});
  EXPECT_EQ(socket(vivaldi), std::nullopt);
}

TEST_F(BrowserInstanceTest, TheUsualProfileIsInTheConfigurationOfTheProcess) {
  const std::string home = folder() / "home";
  const std::string config = folder() / "config";
  const DebuggingAddress inHome = note("home/.config/BraveSoftware/Brave-Browser", 1);
  const DebuggingAddress inConfig = note("config/BraveSoftware/Brave-Browser", 2);
  const DebuggingAddress own = note("own", 3);
  {
    const auto process =
        start("brave", {withSocket}, {{"HOME", home}, {"XDG_CONFIG_HOME", config}});
    EXPECT_EQ(socket(brave), inConfig);
  }
  {
    const auto process = start("brave", {withSocket}, {{"HOME", home}, {"XDG_CONFIG_HOME", ""}});
    EXPECT_EQ(socket(brave), inHome);
  }
  const auto process = start("brave", {withSocket},
                             {{"HOME", home},
                              {"XDG_CONFIG_HOME", config},
                              {"CHROME_USER_DATA_DIR", (folder() / "own").string()}});
  EXPECT_EQ(socket(brave), own);
}

TEST_F(BrowserInstanceTest, ARelativeProfileIsInTheFolderThatTheProcessWorksIn) {
  const DebuggingAddress address = note("work/profile");
  const PretendedBrowser process(folder() / "vivaldi-bin", {withSocket, profileOption("profile")},
                                 {{"WORK", (folder() / "work").string()}},
                                 "cd \"$WORK\"; kill -STOP $$");
  EXPECT_TRUE(waitUntil([&] { return socket(vivaldi) == address; }));
}

TEST_F(BrowserInstanceTest, AProfileIsFoundInACommandLineThatWasWrittenAnew) {
  // As Chromium does it: one text, with spaces between what were arguments.
  const DebuggingAddress address = note("my profile");
  const std::string line = std::string("vivaldi-bin --first ") + withSocket + " " +
                           profileOption(folder() / "my profile") + " https://example.com/";
  PretendedBrowser::install(folder() / "vivaldi-bin");
  // A shell that has no arguments does what its environment says.
  std::ofstream(folder() / "script") << "kill -STOP $$\n";
  const TestProcess process(
      {.arguments = {"/usr/bin/bash", "-c", "BASH_ENV=$SCRIPT exec -a \"$LINE\" \"$PROGRAM\""},
       .environment = {{"LINE", line},
                       {"PROGRAM", (folder() / "vivaldi-bin").string()},
                       {"SCRIPT", (folder() / "script").string()}}});
  EXPECT_TRUE(waitUntil([&] {
    const Instances found = browserInstances(vivaldi);
    return found == Instances{{.process = process.pid(), .socket = address}};
  }));
}

TEST_F(BrowserInstanceTest, ReleasesWithTheSameProgramNameAreToldApartByTheirFolders) {
  const auto stable = start("brave.com/brave/brave", {});
  const auto beta = start("brave.com/brave-beta/brave", {});
  EXPECT_EQ(browserInstances(brave), (Instances{{.process = stable.pid()}}));
  EXPECT_EQ(browserInstances(braveBeta), (Instances{{.process = beta.pid()}}));
}

}  // namespace
}  // namespace talmo::test
