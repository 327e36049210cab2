#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "web/WebTabScanner.h"

namespace talmo {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr const char* browser = "com.google.Chrome";
constexpr const char* watch = "https://www.youtube.com/watch?v=1";

std::vector<WebTabMatch> parse(std::string_view output) {
  return WebTabScanner::parse(output, browser, "Chrome");
}

WebTabMatch youTube(std::string url, std::string title) {
  return {"youtube-web", browser, "Chrome", std::move(url), std::move(title)};
}

TEST(ScanOutput, ALineIsAnAddressAndATitle) {
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\tOne\n"
                    "https://soundcloud.com/a/b\tTwo\n"
                    "https://youtu.be/x\tThree\n"),
              ElementsAre(youTube(watch, "One"),
                          WebTabMatch{"soundcloud-web", browser, "Chrome",
                                      "https://soundcloud.com/a/b", "Two"},
                          youTube("https://youtu.be/x", "Three")));
}

TEST(ScanOutput, TheLastLineNeedsNoEnd) {
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\tOne"), ElementsAre(youTube(watch, "One")));
}

TEST(ScanOutput, NothingAndEmptyLinesAreNoMatches) {
  EXPECT_THAT(parse(""), IsEmpty());
  EXPECT_THAT(parse("\n\n\n"), IsEmpty());
  EXPECT_THAT(parse("\t\n \t \n\t\t"), IsEmpty());
  EXPECT_THAT(parse("\n\nhttps://www.youtube.com/watch?v=1\tOne\n\n"), SizeIs(1));
}

TEST(ScanOutput, ALineWithoutATitleHasAnEmptyOne) {
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\nhttps://www.youtube.com/watch?v=1\t\n"
                    "https://www.youtube.com/watch?v=1\t \u00A0\n"),
              ElementsAre(youTube(watch, ""), youTube(watch, ""), youTube(watch, "")));
}

TEST(ScanOutput, ATitleKeepsItsTabCharacters) {
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\tA\tB\t\tC\t\n"),
              ElementsAre(youTube(watch, "A\tB\t\tC")));
}

TEST(ScanOutput, AddressAndTitleAreTrimmed) {
  EXPECT_THAT(parse(" \u3000https://www.youtube.com/watch?v=1\u00A0\t \u2003One two\u2028\r\n"),
              ElementsAre(youTube(watch, "One two")));
}

TEST(ScanOutput, PagesThatAreNoPlayersAreSkippedAndTheRestIsUsed) {
  EXPECT_THAT(parse("https://www.youtube.com/\tYouTube\n"
                    "https://www.youtube.com/results?search_query=a\tSearch\n"
                    "https://example.com/?youtube.com/watch\tElsewhere\n"
                    "https://notyoutube.com/watch\tNot YouTube\n"
                    "no address\tAt all\n"
                    "\tOnly a title\n"
                    "https://www.youtube.com/watch?v=1\tOne\n"),
              ElementsAre(youTube(watch, "One")));
}

TEST(ScanOutput, ATitleWithALineEndIsNoSecondTab) {
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\tOne\nand more\n"),
              ElementsAre(youTube(watch, "One")));
}

TEST(ScanOutput, HostileTextIsKeptAsText) {
  const std::string hostile = R"(" & (do shell script "touch /tmp/x") & "\)";
  EXPECT_THAT(parse(watch + ("\t" + hostile) + "\n"), ElementsAre(youTube(watch, hostile)));
  EXPECT_THAT(parse(watch + hostile + "\tOne\n"), ElementsAre(youTube(watch + hostile, "One")));
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=\0\tOne\n"s), IsEmpty());
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=\r1\tOne\n"), IsEmpty());
  EXPECT_THAT(parse("https://www.youtube.com/watch?v=1\t\xFF\xFE\n"),
              ElementsAre(youTube(watch, "\xFF\xFE")));
}

TEST(ScanOutput, AHundredThousandLinesAreRead) {
  std::string output;
  for (int line = 0; line < 100000; ++line) output += "https://youtu.be/x\tTitle\n";
  EXPECT_THAT(parse(output), SizeIs(100000));
}

WebTabMatch match(const char* target, const char* inBrowser, std::string title) {
  return {target, inBrowser, inBrowser, "https://page/" + title, title};
}

TEST(BestPerTarget, WithoutAnOwnerTheFirstIsTheBest) {
  const WebTabMatch first = match("soundcloud-web", "safari", "One");
  const WebTabMatch second = match("soundcloud-web", "chrome", "Two");
  const WebTabMatch other = match("youtube-web", "chrome", "Three");
  EXPECT_THAT(WebTabScanner::bestPerTarget({first, second, other}, {}, {}, {}),
              ElementsAre(Pair("soundcloud-web", first), Pair("youtube-web", other)));
  EXPECT_THAT(WebTabScanner::bestPerTarget({}, "safari", {}, "One"), IsEmpty());
}

TEST(BestPerTarget, TheTitleCountsMoreThanTheOwnerAndBothMost) {
  const std::vector<WebTabMatch> matches{
      match("youtube-web", "safari", "plain"), match("youtube-web", "chrome", "owner"),
      match("youtube-web", "safari", "a title"), match("youtube-web", "chrome", "a title too")};
  const auto best = [](std::vector<WebTabMatch> list, std::optional<std::string> owner,
                       std::optional<std::string> parent, std::optional<std::string> title) {
    return WebTabScanner::bestPerTarget(list, owner, parent, title)["youtube-web"].title;
  };
  EXPECT_EQ(best(matches, {}, {}, "A Title"), "a title");
  EXPECT_EQ(best(matches, "chrome", {}, {}), "owner");
  EXPECT_EQ(best(matches, "helper", "chrome", {}), "owner");
  EXPECT_EQ(best(matches, "chrome", {}, "A Title"), "a title too");
  EXPECT_EQ(best(matches, "chrome", {}, "unheard of"), "owner");
  EXPECT_EQ(best(matches, "elsewhere", "nowhere", "unheard of"), "plain");
  EXPECT_EQ(best({matches[2], matches[1]}, "chrome", {}, "A Title"), "a title");
  EXPECT_EQ(best({matches[1], matches[2]}, "chrome", {}, "A Title"), "a title");
  // Too short to tell anything.
  EXPECT_EQ(best({match("youtube-web", "safari", "x"), match("youtube-web", "safari", "own")}, {},
                 {}, "own"),
            "x");
}

TEST(BestPerTarget, AmongEqualsTheFirstStays) {
  const std::vector<WebTabMatch> matches{match("youtube-web", "chrome", "a title"),
                                         match("youtube-web", "chrome", "a title again")};
  EXPECT_EQ(WebTabScanner::bestPerTarget(matches, "chrome", "chrome", "a title")["youtube-web"],
            matches[0]);
}

}  // namespace
}  // namespace talmo
