#include "tests/component/WebPlayerControllerTest.h"

#include <gmock/gmock.h>

#include "web/WebPlayerRegistry.h"
#include "web/WebRouteScripts.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* song = "A long song - YouTube";
constexpr const char* otherSong = "Another tune - YouTube";
const std::string blockedSafari =
    "execution error: Safari got an error: You must enable 'Allow JavaScript from Apple Events' in "
    "the Developer section of Safari Settings. (8)\n";
const std::string blockedChrome =
    "execution error: Google Chrome got an error: Executing JavaScript through AppleScript is "
    "turned off. (12)\n";
const std::string notice =
    "JavaScript from Apple Events unavailable in Safari; MediaRemote already covers skip, so this "
    "only matters for a tab that has never played. How to enable it differs per browser: a "
    "Develop-menu toggle in Safari/Chrome/Brave/Edge, a launch flag in Dia, and nothing at all in "
    "Arc, which needs no setting.";

}  // namespace

TEST_P(WebPlayerControllerTest, AKnownOwnerGetsTheCommandAtOnceAndIsAskedForAgain) {
  open(chrome, "Chrome", {{watchPage, song}});
  // One tab only, so it is the one that plays, whatever the title.
  browsers().setSession(chrome, "Something unrelated");
  learnOwner();
  give({toggle});
  EXPECT_THAT(said(), ElementsAre("route=adapter(fast) browser=Chrome target=YouTube"));
  ASSERT_TRUE(runUntil([&] { return asked().size() == 2; }));
  EXPECT_THAT(asked(), ElementsAre("send 2", "get"));
}

TEST_P(WebPlayerControllerTest, EachCommandHasItsNumber) {
  open(chrome, "Chrome", {{watchPage, song}});
  browsers().setSession("com.google.Chrome.helper", "Something unrelated", chrome);
  learnOwner();
  give({toggle, next, previous});
  ASSERT_TRUE(runUntil([&] { return asked().size() == 6; }));
  std::vector<std::string> sent;
  for (const std::string& command : asked()) {
    if (command != "get") sent.push_back(command);
  }
  EXPECT_THAT(sent, ElementsAre("send 2", "send 4", "send 5"));
}

TEST_P(WebPlayerControllerTest, AnOwnerThatNobodyHasHeardOfIsAskedForFirst) {
  open(chrome, "Chrome", {{watchPage, song}});
  browsers().setSession("com.google.Chrome.helper", "A Long Song", chrome);
  give({next});
  EXPECT_THAT(asked(), ElementsAre("get", "send 4"));
  EXPECT_THAT(said(), ElementsAre("session check: verdict=mine playing=[A Long Song] "
                                  "myTab=[A long song - YouTube] siblings=0",
                                  "route=adapter browser=Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, AnotherTabOfTheSamePlayerThatPlaysKeepsTheSession) {
  open(chrome, "Chrome", {{watchPage, song}, {otherWatchPage, otherSong}});
  browsers().setSession(chrome, "Another Tune");
  learnOwner();
  give({toggle});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.google.Chrome"));
  EXPECT_THAT(said(),
              ElementsAre("session check: verdict=other playing=[Another Tune] "
                          "myTab=[A long song - YouTube] siblings=1",
                          "declining adapter route: Chrome is playing another tab, not YouTube",
                          "route=js browser=Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, AnotherPlayersTabThatPlaysKeepsTheSession) {
  open(safari, "Safari", {{watchPage, song}, {soundCloudPage, "Stream the tune on SoundCloud"}});
  browsers().setSession("com.apple.WebKit.GPU", "The Tune", safari);
  learnOwner();
  give({next});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.apple.Safari"));
  EXPECT_THAT(said(),
              ElementsAre("session check: verdict=other playing=[The Tune] "
                          "myTab=[A long song - YouTube] siblings=1",
                          "declining adapter route: Safari is playing another tab, not YouTube",
                          "route=js browser=Safari target=YouTube"));
  give("soundcloud-web", {next});
  EXPECT_THAT(said(), ElementsAre("route=adapter(fast) browser=Safari target=SoundCloud"));
}

TEST_P(WebPlayerControllerTest, ATitleThatTellsNothingLeavesTheSessionToTheCommand) {
  open(chrome, "Chrome", {{watchPage, song}, {otherWatchPage, "Run - YouTube"}});
  browsers().setSession(chrome, "Run");
  give({toggle});
  EXPECT_THAT(said(), ElementsAre("session check: verdict=unknown playing=[Run] "
                                  "myTab=[A long song - YouTube] siblings=1",
                                  "route=adapter browser=Chrome target=YouTube"));
  give({toggle});
  EXPECT_THAT(said(), ElementsAre("route=adapter(fast) browser=Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, ASessionThatHasMovedToThisTabIsTaken) {
  open(chrome, "Chrome", {{watchPage, song}, {otherWatchPage, otherSong}});
  browsers().setSession(chrome, "Another tune");
  learnOwner();
  browsers().setSession(chrome, "A long song");
  give({toggle});
  EXPECT_THAT(asked(), ElementsAre("get", "send 2"));
}

TEST_P(WebPlayerControllerTest, AnotherApplicationsSessionIsPassedOverSilently) {
  open(chrome, "Chrome", {{watchPage, song}});
  browsers().setSession("com.spotify.client", "A long song");
  learnOwner();
  give({toggle});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.google.Chrome"));
  EXPECT_THAT(said(), ElementsAre("route=js browser=Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, EachCommandRunsItsJavaScriptInTheTab) {
  open(safari, "Safari", {{watchPage, song}});
  give({toggle, next, previous});
  const WebPlayerTarget& target = WebPlayerRegistry::youTube();
  const WebTabMatch match{"youtube-web", safari, "Safari", watchPage, song};
  const auto script = [&](const std::string& js) {
    return WebRouteScripts::javaScriptRoute(BrowserDialect::safari, safari, match, target, js);
  };
  EXPECT_THAT(browsers().scripts(Kind::javaScript),
              ElementsAre(script(target.script.toggle), script(target.script.next),
                          script(target.script.previous)));
}

TEST_P(WebPlayerControllerTest, AToggleFallsBackToTheKeyStrokeInTheTabBroughtForward) {
  const ProcessIdentifier process = open(chrome, "Chrome", {{watchPage, song}});
  browsers().setScript(chrome, Kind::javaScript, Script().write("notab\n"));
  give({toggle});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.google.Chrome", "focus com.google.Chrome"));
  EXPECT_THAT(
      browsers().scripts(Kind::focus),
      ElementsAre(WebRouteScripts::focusRoute(BrowserDialect::chromium, chrome,
                                              {"youtube-web", chrome, "Chrome", watchPage, song},
                                              WebPlayerRegistry::youTube())));
  EXPECT_THAT(keys(process), ElementsAre(KeyboardEvent{40, true, 0}, KeyboardEvent{40, false, 0}));
  EXPECT_THAT(said(), ElementsAre("route=keystroke browser=Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, TheKeyStrokeGoesToTheFirstInstanceOfTheBrowser) {
  const ProcessIdentifier first =
      open(safari, "Safari", {{soundCloudPage, "A track - SoundCloud"}});
  const ProcessIdentifier second = machine().applications().launch(safari);
  browsers().setScript(safari, Kind::javaScript, Script().exit(1));
  give("soundcloud-web", {toggle});
  EXPECT_THAT(keys(first), ElementsAre(KeyboardEvent{49, true, 0}, KeyboardEvent{49, false, 0}));
  EXPECT_THAT(keys(second), IsEmpty());
}

TEST_P(WebPlayerControllerTest, ASkipHasNoKeyStroke) {
  const ProcessIdentifier process = open(chrome, "Chrome", {{watchPage, song}});
  browsers().setScript(chrome, Kind::javaScript, Script().exit(1));
  give({next, previous});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.google.Chrome", "get", "js com.google.Chrome"));
  EXPECT_THAT(said(), ElementsAre("all routes failed for command in Chrome",
                                  "all routes failed for command in Chrome"));
  EXPECT_THAT(keys(process), IsEmpty());
}

TEST_P(WebPlayerControllerTest, AToggleWhoseTabCannotBeBroughtForwardPressesNoKey) {
  const ProcessIdentifier process = open(chrome, "Chrome", {{watchPage, song}});
  browsers().setScript(chrome, Kind::javaScript, Script().exit(1));
  for (const Script& script : {Script().write("ok\n").exit(1), Script().write("notab\n"), Script(),
                               Script::launchFailure("broken")}) {
    browsers().setScript(chrome, Kind::focus, script);
    give({toggle});
    EXPECT_EQ(said().back(), "all routes failed for command in Chrome");
  }
  EXPECT_THAT(keys(process), IsEmpty());
}

TEST_P(WebPlayerControllerTest, ABrowserThatQuitsMeanwhileGetsNoKey) {
  const ProcessIdentifier process = open(chrome, "Chrome", {{watchPage, song}});
  machine().childProcesses().setPrograms([&](const ChildProcessParameters& parameters) {
    if (parameters.arguments[1].find("activate") == std::string::npos) return Script().exit(1);
    machine().applications().quit(process);
    return Script().write("ok\n");
  });
  give({toggle});
  EXPECT_THAT(asked(), ElementsAre("get", "js com.google.Chrome", "focus com.google.Chrome"));
  EXPECT_THAT(said(), ElementsAre("all routes failed for command in Chrome"));
}

TEST_P(WebPlayerControllerTest, BlockedJavaScriptIsSaidOncePerController) {
  open(safari, "Safari", {{watchPage, song}});
  browsers().setScript(safari, Kind::javaScript, Script().writeError(blockedSafari).exit(1));
  give({next, previous, next});
  EXPECT_THAT(said(), ElementsAre(notice, "all routes failed for command in Safari",
                                  "all routes failed for command in Safari",
                                  "all routes failed for command in Safari"));
  give({next});
  EXPECT_THAT(said(), ElementsAre(notice, "all routes failed for command in Safari"));
}

TEST_P(WebPlayerControllerTest, BlockedJavaScriptLeavesTheKeyStroke) {
  const ProcessIdentifier process = open(chrome, "Chrome", {{watchPage, song}});
  browsers().setScript(chrome, Kind::javaScript, Script().writeError(blockedChrome).exit(1));
  give({toggle, toggle});
  ASSERT_EQ(said().size(), 3U);
  EXPECT_THAT(said()[0], HasSubstr("JavaScript from Apple Events unavailable in Chrome;"));
  EXPECT_EQ(said()[1], "route=keystroke browser=Chrome target=YouTube");
  EXPECT_EQ(said()[2], "route=keystroke browser=Chrome target=YouTube");
  EXPECT_EQ(keys(process).size(), 4U);
}

TEST_P(WebPlayerControllerTest, OtherScriptFailuresAreNoBlockedJavaScript) {
  open(safari, "Safari", {{watchPage, song}});
  browsers().setScript(safari, Kind::javaScript,
                       Script().writeError("Application isn't running. (-600)").exit(1));
  give({next});
  browsers().setScript(safari, Kind::javaScript, Script().write(blockedSafari).exit(1));
  give({next});
  EXPECT_THAT(log(), Not(Contains(HasSubstr("unavailable"))));
}

TEST_P(WebPlayerControllerTest, ScriptsThatHangAreGivenUpAfterTheirTime) {
  const ProcessIdentifier process = open(safari, "Safari", {{watchPage, song}});
  browsers().setScript(safari, Kind::javaScript, Script().liveOn());
  browsers().setScript(safari, Kind::focus, Script().liveOn());
  const Uptime before = machine().dispatch().uptime();
  give({toggle});
  EXPECT_GE(machine().dispatch().uptime() - before, 2600ms);
  EXPECT_THAT(said(), ElementsAre("osascript timed out", "osascript timed out",
                                  "all routes failed for command in Safari"));
  EXPECT_THAT(keys(process), IsEmpty());
}

TEST_P(WebPlayerControllerTest, AnAdapterThatHangsCostsItsTimeAndTheJavaScriptRuns) {
  open(safari, "Safari", {{watchPage, song}});
  browsers().setGet(Script().liveOn());
  give({toggle});
  EXPECT_THAT(said(), ElementsAre("route=js browser=Safari target=YouTube"));
  EXPECT_THAT(machine().log().messages("adapter"), ElementsAre("adapter sync run timed out"));
}

TEST_P(WebPlayerControllerTest, AToggleWithoutATabOpensThePlayersPage) {
  give({toggle});
  EXPECT_THAT(said(), ElementsAre("scan found 0 tab(s): ",
                                  "no YouTube tab; opening https://www.youtube.com"));
  ASSERT_TRUE(runUntil([&] { return !machine().workspace().openedURLs().empty(); }));
  give("soundcloud-web", {toggle});
  ASSERT_TRUE(runUntil([&] { return machine().workspace().openedURLs().size() == 2; }));
  EXPECT_THAT(machine().workspace().openedURLs(),
              ElementsAre("https://www.youtube.com", "https://soundcloud.com"));
}

TEST_P(WebPlayerControllerTest, ASkipWithoutATabIsIgnored) {
  give({next, previous});
  EXPECT_THAT(said(), ElementsAre("scan found 0 tab(s): ", "no YouTube tab; ignoring command",
                                  "scan found 0 tab(s): ", "no YouTube tab; ignoring command"));
  EXPECT_THAT(asked(), ElementsAre("get", "get"));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_THAT(machine().workspace().openedURLs(), IsEmpty());
}

TEST_P(WebPlayerControllerTest, ABrowserThatMayNotBeSeenGetsTheCommandUnconfirmed) {
  browsers().launch(chrome, "Google Chrome");
  machine().appleEvents().setConsent(chrome, SimulatedAppleEvents::notPermitted);
  browsers().setSession("com.google.Chrome.helper", "A long song", chrome);
  give({previous});
  EXPECT_THAT(asked(), ElementsAre("get", "send 5"));
  EXPECT_THAT(said(),
              ElementsAre("skipping scan of com.google.Chrome: Automation not granted",
                          "scan found 0 tab(s): ",
                          "route=adapter(unconfirmed) browser=Google Chrome target=YouTube"));
}

TEST_P(WebPlayerControllerTest, AnOwnerThatIsNoBrowserGetsNothing) {
  browsers().setSession("com.spotify.client", "A long song");
  give({next});
  EXPECT_THAT(asked(), ElementsAre("get"));
  // A helper is judged by the application that it belongs to.
  browsers().setSession(chrome, "A long song", "com.spotify.client");
  give({next});
  EXPECT_THAT(asked(), ElementsAre("get"));
}

TEST_P(WebPlayerControllerTest, ABrowserThatPlaysAnotherPlayerKeepsItsSession) {
  open(chrome, "Chrome", {{soundCloudPage, "The tune - SoundCloud"}});
  browsers().setSession(chrome, "The Tune");
  give({toggle});
  EXPECT_THAT(said(),
              ElementsAre("scan found 1 tab(s): soundcloud-web@Chrome [The tune - SoundCloud]",
                          "skipping adapter route: Chrome is playing SoundCloud, not YouTube",
                          "no YouTube tab; opening https://www.youtube.com"));
  EXPECT_THAT(asked(), ElementsAre("scan com.google.Chrome", "get"));
}

TEST_P(WebPlayerControllerTest, ABrowserWhoseOtherPlayerIsSilentGetsTheCommand) {
  open(chrome, "Chrome", {{soundCloudPage, "The tune - SoundCloud"}});
  browsers().setSession(chrome, "A long song");
  give({next});
  EXPECT_THAT(asked(), ElementsAre("scan com.google.Chrome", "get", "send 4"));
}

TEST_P(WebPlayerControllerTest, AHostilePageStaysWithinItsString) {
  const std::string url = "https://www.youtube.com/watch?v=\" & (do shell script \"x\") & \"\\";
  open(chrome, "Chrome", {{url, "\" & (do shell script \"x\") & \"\\"}});
  give({toggle});
  ASSERT_EQ(browsers().scripts(Kind::javaScript).size(), 1U);
  EXPECT_THAT(browsers().scripts(Kind::javaScript)[0],
              HasSubstr("if (URL of t) is \"https://www.youtube.com/watch?v=\\\" & (do shell "
                        "script \\\"x\\\") & \\\"\\\\\" then\n"));
}

}  // namespace talmo::test
