#include <cstdint>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedDispatch.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "support/LogFormat.h"
#include "support/Logger.h"

namespace talmo {
namespace {

using testing::ElementsAre;
using Line = SimulatedLog::Line;

class LogFormatTest : public testing::Test {
 protected:
  SimulatedPlatform machine_{std::make_unique<SimulatedDispatch>()};
};

TEST_F(LogFormatTest, WritesEachKindOfArgument) {
  const Logger log("web-tab");
  const std::string string = "one";
  log.info("%{public}s and %{public}s: %{bool}d, %d of %ld", string, "two", true, -1743,
           std::int64_t{1} << 40);

  EXPECT_THAT(machine_.log().lines(),
              ElementsAre(Line{LogLevel::info, "nl.brelm.Talmo", "web-tab",
                               "one and two: true, -1743 of 1099511627776"}));
}

TEST_F(LogFormatTest, KeepsLevelsApart) {
  const Logger log("adapter");
  log.info("a");
  log.notice("b");
  log.error("c %{bool}d", false);
  log.debug("d");

  EXPECT_THAT(machine_.log().messages(LogLevel::debug), ElementsAre("d"));
  EXPECT_THAT(machine_.log().messages(LogLevel::info), ElementsAre("a"));
  EXPECT_THAT(machine_.log().messages(LogLevel::notice), ElementsAre("b"));
  EXPECT_THAT(machine_.log().messages(LogLevel::error), ElementsAre("c false"));
}

TEST_F(LogFormatTest, DoesNotReadArgumentsAsFormats) {
  const Logger log("adapter");
  log.info("100 %% of [%{public}s]", "%{public}s %n %%");

  EXPECT_THAT(machine_.log().messages("adapter"), ElementsAre("100 % of [%{public}s %n %%]"));
}

// A text without conversions takes no arguments: the check is made when the call is compiled.
static_assert(std::same_as<decltype(LogFormat<>("plain")), LogFormat<>>);
static_assert(logConversion<std::size_t>() == LogConversion::longInteger);
static_assert(logConversion<std::int32_t>() == LogConversion::integer);
static_assert(logConversion<bool>() == LogConversion::boolean);
static_assert(logConversion<const char (&)[4]>() == LogConversion::publicString);

}  // namespace
}  // namespace talmo
