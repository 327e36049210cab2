#include "tests/component/WebTabScannerTest.h"

#include <atomic>
#include <csignal>

#include <gmock/gmock.h>

#include "nowplaying/AdapterNowPlaying.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> titles(const std::vector<WebTabMatch>& matches) {
  std::vector<std::string> titles;
  for (const WebTabMatch& match : matches) titles.push_back(match.title);
  return titles;
}

}  // namespace

TEST_P(WebTabScannerTest, AMachineWithoutBrowsersIsNotAsked) {
  EXPECT_THAT(scan(), IsEmpty());
  EXPECT_THAT(browsers().asked(), IsEmpty());
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(WebTabScannerTest, ABrowserTellsItsPlayerTabs) {
  browsers().launch(chrome, "Google Chrome");
  browsers().setTabs(chrome, {{watchPage, "Song - YouTube"},
                              {"https://www.youtube.com/", "YouTube"},
                              {soundCloudPage, "Track"}});
  EXPECT_THAT(
      scan(),
      ElementsAre(WebTabMatch{"youtube-web", chrome, "Google Chrome", watchPage, "Song - YouTube"},
                  WebTabMatch{"soundcloud-web", chrome, "Google Chrome", soundCloudPage, "Track"}));
  EXPECT_THAT(browsers().scripts(Kind::scan),
              ElementsAre(WebTabScanner::scanScript({chrome, BrowserDialect::chromium})));
}

TEST_P(WebTabScannerTest, ABrowserWithoutANameGoesByItsIdentifier) {
  machine().applications().launch(chrome);
  browsers().setTabs(chrome, {{watchPage, "Song"}});
  EXPECT_THAT(scan(), ElementsAre(testing::Field(&WebTabMatch::browserName, chrome)));
}

TEST_P(WebTabScannerTest, TheMatchesAreInTheOrderOfTheBrowsersWhoeverAnswersFirst) {
  browsers().launch(chrome, "Chrome");
  browsers().launch(brave, "Brave");
  browsers().launch(safari, "Safari");
  browsers().setScript(safari, Kind::scan,
                       Script().wait(20ms).write(std::string(watchPage) + "\tfirst\n"));
  browsers().setTabs(chrome, {{watchPage, "second"}, {otherWatchPage, "third"}});
  browsers().setScript(brave, Kind::scan,
                       Script().wait(10ms).write(std::string(watchPage) + "\tfourth\n"));
  EXPECT_THAT(titles(scan()), ElementsAre("first", "second", "third", "fourth"));
}

TEST_P(WebTabScannerTest, ThePlayingBrowserComesFirstAndThenTheOneInFront) {
  for (const char* browser : {safari, chrome, brave}) {
    browsers().launch(browser, browser);
    browsers().setTabs(browser, {{watchPage, browser}});
  }
  machine().applications().setFrontmost(chrome);
  EXPECT_THAT(titles(scan()), ElementsAre(chrome, safari, brave));
  browsers().setSession(brave, "Song");
  run([] { AdapterNowPlaying::getSync(); });
  EXPECT_THAT(titles(scan()), ElementsAre(brave, chrome, safari));
}

TEST_P(WebTabScannerTest, ABrowserWithoutConsentIsNeverAskedAndLoggedEachTime) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().launch(brave, "Brave");
  machine().appleEvents().setConsent(safari, SimulatedAppleEvents::notPermitted);
  machine().appleEvents().setConsent(chrome, SimulatedAppleEvents::wouldRequireConsent);
  scan();
  scan();
  EXPECT_THAT(browsers().asked(), ElementsAre("scan com.brave.Browser", "scan com.brave.Browser"));
  EXPECT_THAT(log(), ElementsAre("skipping scan of com.apple.Safari: Automation not granted",
                                 "skipping scan of com.google.Chrome: Automation not granted",
                                 "skipping scan of com.apple.Safari: Automation not granted",
                                 "skipping scan of com.google.Chrome: Automation not granted"));
  EXPECT_EQ(machine().appleEvents().prompts(), 0);
}

TEST_P(WebTabScannerTest, ABrowserThatFailsContributesNothingAndTheOthersDo) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().launch(brave, "Brave");
  const std::string line = std::string(watchPage) + "\tunseen\n";
  browsers().setScript(safari, Kind::scan, Script().write(line).exit(1));
  browsers().setScript(chrome, Kind::scan, Script().write(line).signal(SIGSEGV));
  browsers().setTabs(brave, {{watchPage, "seen"}});
  EXPECT_THAT(titles(scan()), ElementsAre("seen"));
  EXPECT_THAT(log(), IsEmpty());
  browsers().setScript(brave, Kind::scan, Script::launchFailure("out of processes"));
  EXPECT_THAT(scan(), IsEmpty());
  EXPECT_THAT(log(), ElementsAre("osascript failed to spawn: out of processes"));
}

TEST_P(WebTabScannerTest, BrowsersThatHangAreAskedAtTheSameTimeAndEndedAfterTwoSeconds) {
  const std::vector<std::string> hanging{safari, chrome, brave, "company.thebrowser.dia"};
  for (const std::string& browser : hanging) {
    browsers().launch(browser, browser);
    browsers().setScript(browser, Kind::scan, Script().liveOn());
  }
  browsers().launch("com.vivaldi.Vivaldi", "Vivaldi");
  browsers().setTabs("com.vivaldi.Vivaldi", {{watchPage, "seen"}});
  const Uptime before = machine().dispatch().uptime();
  std::atomic<std::size_t> running = 0;
  std::vector<WebTabMatch> matches;
  run([&] {
    machine().dispatch().globalQueue(QualityOfService::utility).asyncAfter(1s, [&] {
      running = machine().childProcesses().running().size();
    });
    matches = WebTabScanner::scan();
  });
  EXPECT_EQ(running, hanging.size());
  EXPECT_THAT(titles(matches), ElementsAre("seen"));
  EXPECT_GE(machine().dispatch().uptime() - before, 2s);
  EXPECT_EQ(log(), std::vector<std::string>(hanging.size(), "osascript timed out"));
  int terminates = 0;
  for (const auto& launch : machine().childProcesses().launches()) terminates += launch.terminates;
  EXPECT_EQ(terminates, 4);
}

TEST_P(WebTabScannerTest, ARunGivesItsStatusAndBothOutputs) {
  EXPECT_EQ(runOsascript(Script().write("out\n").writeError("error\n").exit(3), 1300ms),
            (OsascriptResult{3, "out\n", "error\n"}));
  EXPECT_EQ(runOsascript(Script().write("part").signal(SIGKILL), 1300ms),
            (OsascriptResult{SIGKILL, "part", ""}));
  EXPECT_EQ(runOsascript(Script(), 1300ms), (OsascriptResult{0, "", ""}));
  EXPECT_THAT(log(), IsEmpty());
}

TEST_P(WebTabScannerTest, WhatIsNoUtf8IsRepaired) {
  EXPECT_EQ(runOsascript(Script().write("a\xFF").writeError("\xE2\x82").exit(1), 1300ms),
            (OsascriptResult{1, "a\uFFFD", "\uFFFD"}));
}

TEST_P(WebTabScannerTest, ARunThatTakesTooLongIsEndedAndItsOutputNotRead) {
  EXPECT_EQ(runOsascript(Script().write("out").liveOn(), 50ms), std::nullopt);
  EXPECT_EQ(machine().childProcesses().launches()[0].terminates, 1);
  EXPECT_EQ(runOsascript(Script().write(std::string(1 << 20, 'x')), 50ms), std::nullopt);
  EXPECT_THAT(log(), ElementsAre("osascript timed out", "osascript timed out"));
}

}  // namespace talmo::test
