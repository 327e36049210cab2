// What the panel warns of and offers.

#include <chrono>

#include <gmock/gmock.h>

#include "app/Preferences.h"
#include "permissions/AutomationPermission.h"
#include "tests/component/PanelTest.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Apple = SimulatedAppleEvents;
using Query = SimulatedAppleEvents::Query;

const std::vector<std::string> warning{"automation-warning"};
const std::vector<std::string> offer{"browser-primer"};

}  // namespace

TEST_P(PanelOffersTest, APlayerThatMayNotBeAutomatedCannotHear) {
  machine().applications().launch(spotify);
  setConsent(spotify, Apple::notPermitted);
  controller().setSelection("spotify");
  open();
  ASSERT_TRUE(shows(warning));
  EXPECT_THAT(texts(*part(panel().content(), warning)),
              ElementsAre("Spotify can't hear Talmo",
                          "Automation is off, so play/skip won't reach it. Turn Talmo on in "
                          "Automation settings.",
                          "Open Automation settings for Spotify"));
}

TEST_P(PanelOffersTest, AnyOtherAnswerIsNoWarning) {
  machine().applications().launch(spotify);
  setConsent(spotify, Apple::notPermitted);
  controller().setSelection("spotify");
  for (const std::int32_t status :
       {Apple::granted, Apple::wouldRequireConsent, Apple::processNotFound, -1}) {
    setConsent(spotify, Apple::notPermitted);
    open();
    ASSERT_TRUE(shows(warning));
    controller().close();
    setConsent(spotify, status);
    open();
    ASSERT_TRUE(hides(warning));
    controller().close();
  }
}

TEST_P(PanelOffersTest, AKeyStrokePlayerNoPlayerAndAnUnknownOneAreNeverWarnedOf) {
  for (const char* bundleID : {spotify, vlc}) {
    machine().applications().launch(bundleID);
    setConsent(bundleID, Apple::notPermitted);
  }
  open();
  for (const Selection& selection :
       {Selection("vlc"), Selection("winamp"), Selection("auto"), Selection()}) {
    controller().setSelection("spotify");
    ASSERT_TRUE(shows(warning));
    controller().setSelection(selection);
    EXPECT_EQ(model().automationWarning.get(), std::nullopt);
    ASSERT_TRUE(hides(warning));
  }
  EXPECT_EQ(queries(vlc), 0);
}

TEST_P(PanelOffersTest, APinnedWebPlayerInADeniedBrowserCannotBeSeen) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  controller().setSelection("youtube-web");
  open();
  ASSERT_TRUE(lists({"youtube-web"}));
  ASSERT_TRUE(runUntil([&] { return model().webTabs.get().contains("youtube-web"); }));
  EXPECT_EQ(model().automationWarning.get(), std::nullopt) << "granted so far";
  controller().close();

  setConsent(safari, Apple::notPermitted);
  open();
  ASSERT_TRUE(shows(warning));
  EXPECT_THAT(texts(*part(panel().content(), warning)),
              ElementsAre("Talmo can't see Safari's tabs",
                          "Your keys still control it while it plays. Turn Talmo on in Automation "
                          "settings to also find a paused tab.",
                          "Open Automation settings for YouTube"));
}

TEST_P(PanelOffersTest, APinnedWebPlayerWithoutATabIsNotWarnedOf) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::notPermitted);
  controller().setSelection("youtube-web");
  open();
  ASSERT_TRUE(shows(offer)) << "the browser was asked for";
  EXPECT_EQ(model().automationWarning.get(), std::nullopt);
}

TEST_P(PanelOffersTest, AnAnswerAboutAnEarlierChoiceIsNotShown) {
  machine().applications().launch(spotify);
  setConsent(spotify, Apple::notPermitted);
  open();
  controller().setSelection("spotify");
  // Nothing has to be asked about this one.
  controller().setSelection("vlc");
  ASSERT_TRUE(runUntil([&] { return AutomationPermission::cachedStatus(spotify).has_value(); }));
  // Its answer comes after what was queued with it.
  bool isAnswered = false;
  AutomationPermission::refreshStatus(spotify, [&](AutomationStatus) { isAnswered = true; });
  ASSERT_TRUE(runUntil([&] { return isAnswered; }));
  EXPECT_EQ(model().automationWarning.get(), std::nullopt);
}

TEST_P(PanelOffersTest, AChoiceIsWarnedOfAtOnce) {
  machine().applications().install({spotify, "Spotify"});
  machine().applications().launch(spotify);
  setConsent(spotify, Apple::notPermitted);
  openWith({spotify});
  EXPECT_EQ(model().automationWarning.get(), std::nullopt);
  click({"players", "spotify"});
  EXPECT_TRUE(shows(warning));
  click({"players", "spotify"});
  EXPECT_TRUE(hides(warning));
}

TEST_P(PanelOffersTest, ABrowserWithoutConsentIsOffered) {
  for (const std::int32_t status :
       {Apple::wouldRequireConsent, Apple::notPermitted, Apple::processNotFound}) {
    if (status == Apple::wouldRequireConsent) browsers().launch(safari, "Safari");
    setConsent(safari, status);
    open();
    ASSERT_TRUE(shows(offer));
    EXPECT_EQ(model().browserPrimer.get(), (BrowserPrimer{.bundleID = safari, .name = "Safari"}));
    EXPECT_EQ(texts(*part(panel().content(), offer))[2], "Allow for Safari");
    controller().close();
    setConsent(safari, Apple::granted);
    open();
    ASSERT_TRUE(hides(offer));
    controller().close();
  }
}

TEST_P(PanelOffersTest, TheFirstBrowserWithoutConsentIsOffered) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  browsers().launch(brave, "Brave");
  machine().applications().setFrontmost(brave);
  setConsent(chrome, Apple::notPermitted);
  open();
  ASSERT_TRUE(shows(offer));
  EXPECT_EQ(model().browserPrimer.get()->bundleID, chrome);
  controller().close();

  setConsent(brave, Apple::wouldRequireConsent);
  open();
  ASSERT_TRUE(runUntil([&] { return model().browserPrimer.get()->bundleID == brave; }))
      << "the one in front comes first";
  controller().close();

  for (const char* bundleID : {chrome, brave}) setConsent(bundleID, Apple::granted);
  open();
  EXPECT_TRUE(hides(offer));
}

TEST_P(PanelOffersTest, WithoutABrowserNothingIsOffered) {
  setConsent(safari, Apple::notPermitted);
  machine().applications().install({safari, "Safari"});
  open();
  browsers().launch(chrome, "Chrome");
  setConsent(chrome, Apple::wouldRequireConsent);
  controller().close();
  open();
  ASSERT_TRUE(shows(offer));
  EXPECT_EQ(model().browserPrimer.get()->name, "Chrome");
}

TEST_P(PanelOffersTest, OnceATabIsKnownNothingIsOffered) {
  browsers().launch(safari, "Safari");
  browsers().launch(chrome, "Chrome");
  setConsent(chrome, Apple::wouldRequireConsent);
  open();
  ASSERT_TRUE(shows(offer));
  browsers().setTabs(safari, {{watchPage, "Song"}});
  ASSERT_TRUE(lists({"youtube-web"}));
  EXPECT_TRUE(hides(offer));
  browsers().setTabs(safari, {});
  EXPECT_TRUE(shows(offer));
}

TEST_P(PanelOffersTest, NoThanksIsRememberedAndCanBeTakenBack) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::wouldRequireConsent);
  open();
  ASSERT_TRUE(shows(offer));
  click({"browser-primer", "buttons", "dismiss"});
  EXPECT_EQ(model().browserPrimer.get(), std::nullopt);
  EXPECT_TRUE(Preferences::browserAccessDismissed());
  ASSERT_TRUE(hides(offer));
  EXPECT_EQ(machine().appleEvents().prompts(), 0);

  // It stays away, also when it is asked for again.
  machine().notifications().post("nl.brelm.Talmo.browserPrimerRestored");
  const int before = queries(safari);
  controller().close();
  open();
  ASSERT_TRUE(runUntil([&] { return queries(safari) > before; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(model().browserPrimer.get(), std::nullopt);

  const Menu menu = part(panel().content(), {"footer", "options"})->menu();
  const auto item =
      std::ranges::find(menu.items, "Look for Players in a Browser", &MenuItem::title);
  ASSERT_NE(item, menu.items.end());
  item->action();
  EXPECT_FALSE(Preferences::browserAccessDismissed());
  EXPECT_TRUE(shows(offer));
}

TEST_P(PanelOffersTest, AllowingAsksThePersonAndLooksAtTheTabs) {
  browsers().launch(safari, "Safari");
  browsers().setTabs(safari, {{watchPage, "Song"}});
  setConsent(safari, Apple::wouldRequireConsent);
  machine().appleEvents().setAnswer(safari, Apple::granted);
  open();
  ASSERT_TRUE(shows(offer));
  click({"browser-primer", "buttons", "allow"});
  ASSERT_TRUE(lists({"youtube-web"}));
  EXPECT_TRUE(hides(offer));
  EXPECT_EQ(machine().appleEvents().prompts(), 1);
  EXPECT_THAT(machine().appleEvents().queries(),
              testing::Contains(Query{.bundleID = safari, .askUserIfNeeded = true}).Times(1));
  EXPECT_TRUE(controller().isVisible());
}

TEST_P(PanelOffersTest, ARefusalKeepsTheOffer) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::wouldRequireConsent);
  machine().appleEvents().setAnswer(safari, Apple::notPermitted);
  open();
  ASSERT_TRUE(shows(offer));
  const int before = queries(safari);
  click({"browser-primer", "buttons", "allow"});
  // The answer to the request is dropped, and the system asked once more.
  ASSERT_TRUE(runUntil([&] { return queries(safari) > before; }));
  ASSERT_TRUE(runUntil(
      [&] { return AutomationPermission::cachedStatus(safari) == AutomationStatus::denied; }));
  ASSERT_TRUE(world().runMainQueue());
  EXPECT_EQ(model().browserPrimer.get()->bundleID, safari);
}

TEST_P(PanelOffersTest, AConsentThatComesWhenThePanelHasClosedStartsNoTimer) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::wouldRequireConsent);
  open();
  ASSERT_TRUE(shows(offer));
  // A scan is dropped while another one is under way, such as that of the opening.
  ASSERT_TRUE(runUntil(
      [this] { return testing::Value(log(), testing::Contains("scan found 0 tab(s): ")); }));
  pass(100ms);
  const auto scans = [this] { return browsers().scripts(Kind::scan).size(); };
  browsers().setTabs(safari, {{watchPage, "Song"}});
  click({"browser-primer", "buttons", "allow"});
  controller().close();
  // One scan with the new consent, and what it finds is there when the panel opens.
  ASSERT_TRUE(runUntil([&] { return !model().webTabs.get().empty(); }));
  EXPECT_EQ(scans(), 1U);
  pass(6s);
  EXPECT_EQ(scans(), 1U);
}

TEST_P(PanelOffersTest, ABrowserThatComesToTheFrontIsLookedAtAnew) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::notPermitted);
  open();
  ASSERT_TRUE(shows(offer));
  // The person has allowed it in the settings and comes back.
  setConsent(safari, Apple::granted);
  browsers().setTabs(safari, {{watchPage, "Song"}});
  machine().applications().setFrontmost(safari);
  machine().workspaceNotifications().post("NSWorkspaceDidActivateApplicationNotification");
  EXPECT_TRUE(hides(offer));
  EXPECT_TRUE(lists({"youtube-web"}));
}

TEST_P(PanelOffersTest, AnyOtherApplicationThatComesToTheFrontChangesNothing) {
  browsers().launch(safari, "Safari");
  setConsent(safari, Apple::notPermitted);
  open();
  ASSERT_TRUE(shows(offer));
  ASSERT_TRUE(runUntil([&] { return queries(safari) > 0; }));
  const int before = queries(safari);
  machine().applications().setFrontmost(spotify);
  machine().workspaceNotifications().post("NSWorkspaceDidActivateApplicationNotification");
  ASSERT_TRUE(world().runMainQueue());
  machine().applications().setFrontmost(std::nullopt);
  machine().workspaceNotifications().post("NSWorkspaceDidActivateApplicationNotification");
  pass(500ms);
  EXPECT_EQ(queries(safari), before);
}

}  // namespace talmo::test
