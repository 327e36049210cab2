#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "web/WebSessionOwnership.h"

namespace talmo {
namespace {

using Verdict = WebSessionOwnership::Verdict;

WebTabMatch tab(std::string title) {
  return {.url = "https://www.youtube.com/watch?v=" + title, .title = std::move(title)};
}

std::vector<WebTabMatch> tabs(const std::vector<std::string>& titles) {
  std::vector<WebTabMatch> tabs;
  for (const std::string& title : titles) tabs.push_back(tab(title));
  return tabs;
}

struct Row {
  std::string_view tabTitle;
  std::string_view sessionTitle;
  bool matches;
};

TEST(WebSessionOwnership, ATabTitleMatchesTheTitleItHolds) {
  for (const auto& [tabTitle, sessionTitle, matches] : {
           Row{"A long song - YouTube", "A long song", true},
           Row{"(3) A long song - YouTube", "A long song", true},
           Row{"A long song", "A long song", true},
           Row{"A LONG\u00A0 song - YouTube", "a  Long\tSong\n", true},
           Row{" \n A long\u3000song", "A long song ", true},
           Row{"A long song", "A long song - YouTube", false},
           Row{"Another song", "A long song", false},
           Row{"A long", "A long song", false},
           Row{"", "", false},
           Row{"A long song", "", false},
           Row{"", "A long song", false},
       }) {
    EXPECT_EQ(WebSessionOwnership::titleMatches(tabTitle, sessionTitle), matches)
        << "[" << tabTitle << "] [" << sessionTitle << "]";
  }
}

TEST(WebSessionOwnership, TitlesOfThreeCharactersOrFewerTellNothing) {
  for (const auto& [tabTitle, sessionTitle, matches] : {
           Row{"Run - YouTube", "Run", false},
           Row{"Runs - YouTube", "Runs", true},
           Row{"Run", "Run", false},
           Row{"a b - YouTube", " a \t b ", false},
           Row{"a bc - YouTube", "a bc", true},
           // Characters are counted, not bytes, marks or code points.
           Row{"東京都 - YouTube", "東京都", false},
           Row{"東京都民 - YouTube", "東京都民", true},
           Row{"e\u0301e\u0301e\u0301 - YouTube", "e\u0301e\u0301e\u0301", false},
           Row{"👩‍👩‍👧 - YouTube", "👩‍👩‍👧", false},
       }) {
    EXPECT_EQ(WebSessionOwnership::titleMatches(tabTitle, sessionTitle), matches)
        << "[" << tabTitle << "] [" << sessionTitle << "]";
  }
}

TEST(WebSessionOwnership, TitlesOfAnyScriptCompareAsAPersonExpects) {
  for (const auto& [tabTitle, sessionTitle, matches] : {
           Row{"Ο ΔΡΟΜΟΣ - YouTube", "Ο δρόμος", false},
           Row{"Ο ΔΡΟΜΟΣ - YouTube", "ο δρομος", true},
           Row{"İstanbul Hatırası - YouTube", "İSTANBUL Hatırası", true},
           Row{"ＦＵＬＬ　ＷＩＤＴＨ - YouTube", "ｆｕｌｌ ｗｉｄｔｈ", true},
           Row{"Déjà vu - YouTube", "De\u0301ja\u0300 vu", true},
           Row{"De\u0301ja\u0300 vu - YouTube", "DÉJÀ VU", true},
           Row{"МУЗЫКА - YouTube", "музыка", true},
           Row{"broken \xFF\xFE title - YouTube", "broken \xFF\xFE title", true},
           Row{"\xFF\xFE\xFD", "\xFF\xFE\xFD", false},
       }) {
    EXPECT_EQ(WebSessionOwnership::titleMatches(tabTitle, sessionTitle), matches)
        << "[" << tabTitle << "] [" << sessionTitle << "]";
  }
}

TEST(WebSessionOwnership, ATabWithoutSiblingsOwnsWhateverIsPlayed) {
  EXPECT_EQ(WebSessionOwnership::judge("Unrelated", tab("A long song"), {}), Verdict::mine);
  EXPECT_EQ(WebSessionOwnership::judge(std::nullopt, tab("A long song"), {}), Verdict::mine);
  EXPECT_EQ(WebSessionOwnership::judge("Unrelated", std::nullopt, {}), Verdict::mine);
}

TEST(WebSessionOwnership, ATitleThatTellsNothingLeavesItOpen) {
  const auto siblings = tabs({"Run - YouTube"});
  EXPECT_EQ(WebSessionOwnership::judge(std::nullopt, tab("Run"), siblings), Verdict::unknown);
  EXPECT_EQ(WebSessionOwnership::judge("", tab("Run"), siblings), Verdict::unknown);
  EXPECT_EQ(WebSessionOwnership::judge("Run", tab("Run"), siblings), Verdict::unknown);
  EXPECT_EQ(WebSessionOwnership::judge(" \n ", tab("Run"), siblings), Verdict::unknown);
}

TEST(WebSessionOwnership, TheOwnTitleCountsBeforeTheSiblings) {
  const WebTabMatch mine = tab("A long song - YouTube");
  EXPECT_EQ(WebSessionOwnership::judge("A Long Song", mine, tabs({"A long song - YouTube"})),
            Verdict::mine);
  EXPECT_EQ(WebSessionOwnership::judge("Another tune", mine, tabs({"x", "Another tune - YouTube"})),
            Verdict::other);
  EXPECT_EQ(WebSessionOwnership::judge("Unrelated", mine, tabs({"Another tune - YouTube"})),
            Verdict::unknown);
  EXPECT_EQ(WebSessionOwnership::judge("Another tune", std::nullopt, tabs({"Another tune"})),
            Verdict::other);
  EXPECT_EQ(WebSessionOwnership::judge("Unrelated", std::nullopt, tabs({"Another tune"})),
            Verdict::unknown);
  // A tab without a title of its own is not the one that plays.
  EXPECT_EQ(WebSessionOwnership::judge("Another tune", tab(""), tabs({"Another tune"})),
            Verdict::other);
}

TEST(WebSessionOwnership, AVerdictHasItsName) {
  EXPECT_EQ(name(Verdict::mine), "mine");
  EXPECT_EQ(name(Verdict::other), "other");
  EXPECT_EQ(name(Verdict::unknown), "unknown");
}

}  // namespace
}  // namespace talmo
