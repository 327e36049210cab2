#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

#include <gtest/gtest.h>

#include "platform/linux/applications/LinuxAppleEvents.h"
#include "tests/backend/applications/PrivateData.h"
#include "tests/backend/browsers/FakeBrowser.h"
#include "tests/backend/browsers/PretendedBrowser.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::int32_t granted = 0;
constexpr std::int32_t notRunning = -600;
constexpr std::int32_t notPermitted = -1743;

constexpr const char* vivaldi = "com.vivaldi.Vivaldi";

class BrowserConsentTest : public testing::Test {
 protected:
  BrowserConsentTest() {
    PrivateData::clear();
    std::ofstream(page_) << "how to";
    const std::string script = "echo \"$1\" >> '" + opened_.string() + "'";
    PrivateData::install("vivaldi-stable", "Name=Vivaldi\nExec=/bin/sh -c " +
                                               PrivateData::quoted(script) + " sh %U\n");
  }

  /// Starts a browser with a note of that socket.
  void startBrowser(const std::optional<DebuggingAddress>& address) {
    const std::filesystem::path profile = PrivateData::scratch() / "profile";
    std::vector<std::string> options{"--user-data-dir=" + profile.string()};
    if (address) {
      std::filesystem::create_directories(profile);
      std::ofstream(profile / "DevToolsActivePort") << address->port << '\n' << address->path;
      options.emplace_back("--remote-debugging-port=0");
    }
    browser_ = std::make_unique<PretendedBrowser>(PrivateData::scratch() / "vivaldi-bin", options);
  }

  std::optional<std::int32_t> consent(bool askUserIfNeeded = false) {
    return appleEvents_.determinePermission(vivaldi, askUserIfNeeded);
  }

  /// Everything that was opened in the browser, once there is something.
  std::vector<std::string> opened() const {
    std::vector<std::string> lines;
    waitUntil([&] {
      lines.clear();
      std::ifstream file(opened_);
      for (std::string line; std::getline(file, line);) lines.push_back(line);
      return !lines.empty();
    });
    return lines;
  }

  const std::filesystem::path page_ = PrivateData::scratch() / "the page; #1.html";

 private:
  const std::filesystem::path opened_ = PrivateData::scratch() / "opened";
  LinuxAppleEvents appleEvents_{page_.string()};
  std::unique_ptr<PretendedBrowser> browser_;
};

TEST_F(BrowserConsentTest, ABrowserThatDoesNotRunIsNotFound) {
  EXPECT_EQ(consent(), notRunning);
  EXPECT_EQ(consent(true), notRunning);
}

TEST_F(BrowserConsentTest, ABrowserWhoseSocketAnswersHasConsented) {
  const FakeBrowser socket;
  startBrowser(socket.address());
  EXPECT_EQ(consent(), granted);
  EXPECT_EQ(consent(true), granted);
  EXPECT_EQ(socket.handshakes().size(), 2U);
}

TEST_F(BrowserConsentTest, ABrowserWithoutASocketHasNotConsented) {
  startBrowser(std::nullopt);
  EXPECT_EQ(consent(), notPermitted);
}

TEST_F(BrowserConsentTest, ABrowserWhoseNoteIsStaleHasNotConsented) {
  const FakeBrowser other;
  DebuggingAddress stale = other.address();
  stale.path += "-of-yesterday";
  startBrowser(stale);
  EXPECT_EQ(consent(), notPermitted);
}

TEST_F(BrowserConsentTest, ABrowserThatHangsCostsHalfASecond) {
  const FakeBrowser hung({.handshake = FakeBrowser::Handshake::hangs});
  startBrowser(hung.address());
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(consent(), notPermitted);
  EXPECT_GE(Clock::now() - start, 500ms);
  EXPECT_LT(Clock::now() - start, 5s);
}

TEST_F(BrowserConsentTest, WhoIsAskedIsShownThePageInTheBrowserAndNobodyElse) {
  startBrowser(std::nullopt);
  EXPECT_EQ(consent(false), notPermitted);
  EXPECT_EQ(consent(true), notPermitted);
  EXPECT_EQ(opened(), std::vector<std::string>{page_.string()});
}

}  // namespace
}  // namespace talmo::test
