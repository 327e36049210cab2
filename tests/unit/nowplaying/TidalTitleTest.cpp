#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "nowplaying/TidalTitle.h"

namespace talmo {
namespace {

struct Row {
  const char* windowTitle;
  std::optional<TidalTitle> track;
};

TidalTitle track(const char* title, const char* artist) {
  return {.title = title, .artist = artist};
}

class TidalTitles : public testing::TestWithParam<Row> {};

TEST_P(TidalTitles, NameATrackOrNone) {
  EXPECT_EQ(TidalTitle::parseTidalTitle(GetParam().windowTitle), GetParam().track)
      << GetParam().windowTitle;
}

INSTANTIATE_TEST_SUITE_P(
    TrackAndArtist, TidalTitles,
    testing::Values(Row{"Song - Artist", track("Song", "Artist")},
                    Row{"Song - Artist - TIDAL", track("Song", "Artist")},
                    Row{"Song \u2013 Artist", track("Song", "Artist")},
                    Row{"Song \u2013 Artist \u2013 TIDAL", track("Song", "Artist")},
                    Row{"Song - Artist \u2013 TIDAL", track("Song", "Artist")},
                    Row{"Song \u2013 Artist - TIDAL", track("Song", "Artist")},
                    Row{"Caf\u00e9 - Bj\u00f6rk - TIDAL", track("Caf\u00e9", "Bj\u00f6rk")}));

INSTANTIATE_TEST_SUITE_P(
    Suffixes, TidalTitles,
    testing::Values(Row{"Song - Artist \u2013 TIDAL - TIDAL", track("Song", "Artist")},
                    // The hyphen's goes first and is not looked for again.
                    Row{"Song - Artist - TIDAL \u2013 TIDAL", track("Song", "Artist - TIDAL")},
                    Row{"Song - Artist - TIDAL - TIDAL", track("Song", "Artist - TIDAL")},
                    // Only as it is written.
                    Row{"Song - Artist - Tidal", track("Song", "Artist - Tidal")},
                    Row{"Song - Artist-TIDAL", track("Song", "Artist-TIDAL")},
                    Row{"Song - TIDAL", std::nullopt}, Row{" - TIDAL", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(NoTrack, TidalTitles,
                         testing::Values(Row{"TIDAL", std::nullopt}, Row{"tidal", std::nullopt},
                                         Row{"TiDaL", std::nullopt}, Row{"", std::nullopt},
                                         Row{"TIDAL - TIDAL", std::nullopt},
                                         Row{"tidal \u2013 TIDAL", std::nullopt},
                                         Row{"Song", std::nullopt},
                                         Row{"Song-Artist", std::nullopt},
                                         Row{"Song -Artist", std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Separators, TidalTitles,
    testing::Values(Row{"One - Two - Three", track("One", "Two - Three")},
                    Row{"One \u2013 Two \u2013 Three", track("One", "Two \u2013 Three")},
                    // A hyphen goes before an en dash, wherever they stand.
                    Row{"One \u2013 Two - Three", track("One \u2013 Two", "Three")},
                    Row{"A-B - C\u2013D", track("A-B", "C\u2013D")}));

INSTANTIATE_TEST_SUITE_P(WhiteSpace, TidalTitles,
                         testing::Values(Row{"  Song  -  Artist ", track("Song", "Artist")},
                                         Row{"\u00a0Song - \tArtist\n", track("Song", "Artist")},
                                         Row{" - Artist", std::nullopt},
                                         Row{"Song - ", std::nullopt}, Row{"   -   ", std::nullopt},
                                         Row{"Song - \u2003", std::nullopt},
                                         // An empty half does not send it on to the en dash.
                                         Row{" - A \u2013 B", std::nullopt}));

TEST(TidalTitle, SurvivesWhatIsNoText) {
  EXPECT_EQ(TidalTitle::parseTidalTitle("\xff - \xfe"), track("\xff", "\xfe"));
  EXPECT_EQ(TidalTitle::parseTidalTitle("\xff"), std::nullopt);
}

}  // namespace
}  // namespace talmo
