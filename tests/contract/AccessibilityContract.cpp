#include "tests/contract/AccessibilityContract.h"

#include <gmock/gmock.h>

namespace talmo::test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_P(AccessibilityContract, TrustIsThatOfTheMoment) {
  EXPECT_TRUE(world().accessibility().isProcessTrusted());
  for (int round = 0; round < 2; ++round) {
    world().setTrusted(false);
    EXPECT_FALSE(world().accessibility().isProcessTrusted());
    EXPECT_FALSE(world().accessibility().isProcessTrusted());
    world().setTrusted(true);
    EXPECT_TRUE(world().accessibility().isProcessTrusted());
    EXPECT_TRUE(world().accessibility().isProcessTrusted());
  }
}

TEST_P(AccessibilityContract, ThePromptIsNotWaitedForAndChangesNoAnswer) {
  for (const bool prompt : {false, true}) {
    EXPECT_TRUE(world().accessibility().isProcessTrustedWithPrompt(prompt));
    world().setTrusted(false);
    EXPECT_FALSE(world().accessibility().isProcessTrustedWithPrompt(prompt));
    EXPECT_FALSE(world().accessibility().isProcessTrusted());
    world().setTrusted(true);
  }
}

TEST_P(AccessibilityContract, AllWindowsOfTheApplicationTellTheirTitles) {
  const ProcessIdentifier process = world().startApplication();
  world().openWindow(process, "Song - Artist");
  world().openWindow(process, "Caf\u00e9 \u2013 \u97f3\u697d");
  EXPECT_THAT(titles(process),
              UnorderedElementsAre("Song - Artist", "Caf\u00e9 \u2013 \u97f3\u697d"));
}

TEST_P(AccessibilityContract, OtherApplicationsWindowsAreTheirOwn) {
  const ProcessIdentifier one = world().startApplication();
  const ProcessIdentifier other = world().startApplication();
  world().openWindow(one, "One");
  world().openWindow(other, "Other");
  EXPECT_THAT(titles(one), ElementsAre("One"));
  EXPECT_THAT(titles(other), ElementsAre("Other"));
}

TEST_P(AccessibilityContract, AWindowWithoutATitleIsLeftOut) {
  const ProcessIdentifier process = world().startApplication();
  world().openWindow(process, "");
  world().openWindow(process, "Song");
  EXPECT_THAT(titles(process), ElementsAre("Song"));
}

TEST_P(AccessibilityContract, TheTitlesAreThoseOfTheMoment) {
  const ProcessIdentifier process = world().startApplication();
  world().openWindow(process, "One");
  EXPECT_THAT(titles(process), ElementsAre("One"));
  world().retitle(process, "Two");
  EXPECT_THAT(titles(process), ElementsAre("Two"));
  world().closeWindows(process);
  EXPECT_THAT(titles(process), IsEmpty());
}

TEST_P(AccessibilityContract, WhoHasNoWindowsHasNoTitles) {
  const ProcessIdentifier process = world().startApplication();
  const ProcessIdentifier other = world().startApplication();
  world().openWindow(other, "Other");
  EXPECT_THAT(titles(process), IsEmpty());
  EXPECT_THAT(titles(0), IsEmpty());
  EXPECT_THAT(titles(-1), IsEmpty());
}

}  // namespace talmo::test
