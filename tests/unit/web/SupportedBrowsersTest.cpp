#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/component/SimulatedWorld.h"
#include "web/SupportedBrowsers.h"

namespace talmo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum BrowserDialect;

constexpr const char* safariID = "com.apple.Safari";
constexpr const char* chromeID = "com.google.Chrome";
constexpr const char* braveID = "com.brave.Browser";
const SupportedBrowser safariRow{safariID, safari};
const SupportedBrowser chromeRow{chromeID, chromium};
const SupportedBrowser braveRow{braveID, chromium};

TEST(SupportedBrowsers, AreTheseNineteenInThisOrder) {
  EXPECT_THAT(SupportedBrowsers::all(),
              ElementsAre(safariRow, SupportedBrowser{"com.apple.SafariTechnologyPreview", safari},
                          chromeRow, SupportedBrowser{"com.google.Chrome.beta", chromium},
                          SupportedBrowser{"com.google.Chrome.dev", chromium},
                          SupportedBrowser{"com.google.Chrome.canary", chromium}, braveRow,
                          SupportedBrowser{"com.brave.Browser.beta", chromium},
                          SupportedBrowser{"com.brave.Browser.nightly", chromium},
                          SupportedBrowser{"com.microsoft.edgemac", chromium},
                          SupportedBrowser{"com.microsoft.edgemac.Beta", chromium},
                          SupportedBrowser{"com.vivaldi.Vivaldi", chromium},
                          SupportedBrowser{"com.operasoftware.Opera", chromium},
                          SupportedBrowser{"com.operasoftware.OperaGX", chromium},
                          SupportedBrowser{"com.pushplaylabs.sidekick", chromium},
                          SupportedBrowser{"ai.perplexity.comet", chromium},
                          SupportedBrowser{"company.thebrowser.Browser", chromium},
                          SupportedBrowser{"company.thebrowser.dia", chromium},
                          SupportedBrowser{"com.kagi.kagimacOS", safari}));
}

TEST(SupportedBrowsers, AreKnownByTheirExactIdentifiers) {
  EXPECT_TRUE(SupportedBrowsers::isSupported(safariID));
  EXPECT_TRUE(SupportedBrowsers::isSupported("com.kagi.kagimacOS"));
  EXPECT_FALSE(SupportedBrowsers::isSupported("com.apple.safari"));
  EXPECT_FALSE(SupportedBrowsers::isSupported("com.apple.Safari.helper"));
  EXPECT_FALSE(SupportedBrowsers::isSupported("org.mozilla.firefox"));
  EXPECT_FALSE(SupportedBrowsers::isSupported(""));
  EXPECT_FALSE(SupportedBrowsers::isSupported(std::nullopt));
}

TEST(SupportedBrowsers, AnUnlistedBrowserSpeaksChromium) {
  EXPECT_EQ(SupportedBrowsers::dialect(safariID), safari);
  EXPECT_EQ(SupportedBrowsers::dialect("com.kagi.kagimacOS"), safari);
  EXPECT_EQ(SupportedBrowsers::dialect(chromeID), chromium);
  EXPECT_EQ(SupportedBrowsers::dialect("org.mozilla.firefox"), chromium);
}

TEST(SupportedBrowsers, ThePlayingOneComesFirstAndThenTheOneInFront) {
  const std::vector<SupportedBrowser> list{safariRow, chromeRow, braveRow};
  const auto prioritise = [&](std::optional<std::string> frontmost,
                              std::optional<std::string> playing) {
    return SupportedBrowsers::prioritise(list, frontmost, playing);
  };
  EXPECT_EQ(prioritise(std::nullopt, std::nullopt), list);
  EXPECT_THAT(prioritise(braveID, std::nullopt), ElementsAre(braveRow, safariRow, chromeRow));
  EXPECT_THAT(prioritise(std::nullopt, chromeID), ElementsAre(chromeRow, safariRow, braveRow));
  EXPECT_THAT(prioritise(safariID, chromeID), ElementsAre(chromeRow, safariRow, braveRow));
  EXPECT_THAT(prioritise(braveID, chromeID), ElementsAre(chromeRow, braveRow, safariRow));
  EXPECT_THAT(prioritise(braveID, braveID), ElementsAre(braveRow, safariRow, chromeRow));
  EXPECT_EQ(prioritise("com.spotify.client", "org.mozilla.firefox"), list);
  EXPECT_THAT(SupportedBrowsers::prioritise({}, safariID, chromeID), IsEmpty());
}

TEST(SupportedBrowsers, OnlyTheRunningOnesAreListed) {
  test::SimulatedWorld world;
  SimulatedApplications& applications = world.machine().applications();
  EXPECT_THAT(SupportedBrowsers::runningFrontmostFirst(std::nullopt), IsEmpty());
  applications.launch("org.mozilla.firefox");
  applications.launch(braveID);
  applications.launch(chromeID);
  applications.launch(chromeID);
  applications.launch(safariID);
  EXPECT_THAT(SupportedBrowsers::runningFrontmostFirst(std::nullopt),
              ElementsAre(safariRow, chromeRow, braveRow));
  applications.setFrontmost(safariID);
  EXPECT_THAT(SupportedBrowsers::runningFrontmostFirst(chromeID),
              ElementsAre(chromeRow, safariRow, braveRow));
  applications.setFrontmost("org.mozilla.firefox");
  EXPECT_THAT(SupportedBrowsers::runningFrontmostFirst("com.spotify.client"),
              ElementsAre(safariRow, chromeRow, braveRow));
}

TEST(SupportedBrowsers, ANameIsAskedOfTheFirstRunningInstance) {
  test::SimulatedWorld world;
  SimulatedApplications& applications = world.machine().applications();
  applications.install({chromeID, "Google Chrome"});
  EXPECT_EQ(SupportedBrowsers::name(chromeID), chromeID);
  applications.launch(chromeID);
  EXPECT_EQ(SupportedBrowsers::name(chromeID), "Google Chrome");
}

}  // namespace
}  // namespace talmo
