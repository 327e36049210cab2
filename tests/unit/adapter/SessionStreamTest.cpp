#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "adapter/MediaSession.h"
#include "adapter/SessionFields.h"
#include "adapter/SessionStream.h"
#include "tests/unit/adapter/StreamReader.h"

namespace talmo::test {
namespace {

using nlohmann::json;

std::shared_ptr<const std::string> bytes(const std::string& text) {
  return std::make_shared<std::string>(text);
}

MediaSession tune() {
  return {
      .bundleIdentifier = "org.example.player",
      .trackIdentifier = "/track/1",
      .title = "Title",
      .artist = "Artist",
      .album = "Album",
      .isPlaying = true,
      .elapsedTime = 1.5,
      .duration = 60.0,
      .artwork = bytes("image"),
  };
}

json tuneFields() {
  return {{"bundleIdentifier", "org.example.player"},
          {"title", "Title"},
          {"artist", "Artist"},
          {"album", "Album"},
          {"playing", true},
          {"elapsedTime", 1.5},
          {"duration", 60.0},
          {"artworkData", "aW1hZ2U="}};
}

json full(const json& payload) {
  return {{"diff", false}, {"payload", payload}};
}

json difference(const json& payload) {
  return {{"diff", true}, {"payload", payload}};
}

class SessionStreamTest : public testing::Test {
 protected:
  /// What the stream says of `session`; null when nothing.
  json next(const std::optional<MediaSession>& session) {
    const std::optional<std::string> line = stream_.next(session);
    if (!line) return nullptr;
    EXPECT_EQ(line->find('\n'), line->size() - 1);
    return json::parse(*line);
  }

  SessionStream stream_;
};

TEST_F(SessionStreamTest, StartsWithTheFullState) {
  EXPECT_EQ(next(tune()), full(tuneFields()));
}

TEST_F(SessionStreamTest, StartsWithAnEmptyStateWhenNobodyOwnsASession) {
  EXPECT_EQ(next(std::nullopt), full(json::object()));
  EXPECT_EQ(next(std::nullopt), nullptr);
  EXPECT_EQ(next(tune()), full(tuneFields()));
}

TEST_F(SessionStreamTest, IsSilentWhenNothingChanged) {
  next(tune());
  EXPECT_EQ(next(tune()), nullptr);
}

TEST_F(SessionStreamTest, EndsASessionWithAnEmptyState) {
  next(tune());
  EXPECT_EQ(next(std::nullopt), full(json::object()));
  EXPECT_EQ(next(std::nullopt), nullptr);
}

TEST_F(SessionStreamTest, TellsNothingButWhatChanged) {
  struct Row {
    std::function<void(MediaSession&)> change;
    json expected;
  };
  const std::vector<Row> rows{
      {[](MediaSession& s) { s.isPlaying = false; }, {{"playing", false}}},
      {[](MediaSession& s) { s.elapsedTime = 2.5; }, {{"elapsedTime", 2.5}}},
      {[](MediaSession& s) { s.elapsedTime.reset(); }, {{"elapsedTime", nullptr}}},
      {[](MediaSession& s) { s.duration = 61.0; }, {{"duration", 61.0}}},
      {[](MediaSession& s) { s.duration.reset(); }, {{"duration", nullptr}}},
      {[](MediaSession& s) { s.artist = "Other"; }, {{"artist", "Other"}}},
      {[](MediaSession& s) { s.artist = ""; }, {{"artist", ""}}},
      {[](MediaSession& s) { s.artist.reset(); }, {{"artist", nullptr}}},
      {[](MediaSession& s) { s.album = "Other"; }, {{"album", "Other"}}},
      {[](MediaSession& s) { s.album.reset(); }, {{"album", nullptr}}},
      {[](MediaSession& s) { s.artwork = bytes("other"); }, {{"artworkData", "b3RoZXI="}}},
      {[](MediaSession& s) { s.artwork.reset(); }, {{"artworkData", nullptr}}},
      {[](MediaSession& s) { s.artwork = bytes(""); }, {{"artworkData", nullptr}}},
      {[](MediaSession& s) {
         s.isPlaying = false;
         s.album.reset();
       },
       {{"playing", false}, {"album", nullptr}}},
      {[](MediaSession& s) { s.elapsedTime = std::numeric_limits<double>::quiet_NaN(); },
       {{"elapsedTime", nullptr}}},
  };
  for (const auto& [change, expected] : rows) {
    MediaSession session = tune();
    stream_ = SessionStream();
    next(session);
    change(session);
    EXPECT_EQ(next(session), difference(expected));
    EXPECT_EQ(next(session), nullptr) << "told twice: " << expected;
  }
}

TEST_F(SessionStreamTest, TellsWhatCameWithTheSameTrack) {
  MediaSession session{.bundleIdentifier = "a", .trackIdentifier = "1", .title = "b"};
  next(session);
  session.artist = "Artist";
  EXPECT_EQ(next(session), difference({{"artist", "Artist"}}));
  session.artwork = bytes("image");
  EXPECT_EQ(next(session), difference({{"artworkData", "aW1hZ2U="}}));
  session.isPlaying = true;
  EXPECT_EQ(next(session), difference({{"playing", true}}));
}

TEST_F(SessionStreamTest, TellsTheFullStateOfAnotherOwnerOrTrack) {
  struct Row {
    std::function<void(MediaSession&)> change;
    json expected;
  };
  const std::vector<Row> rows{
      {[](MediaSession& s) { s.trackIdentifier = "/track/2"; }, json::object()},
      {[](MediaSession& s) { s.trackIdentifier = ""; }, json::object()},
      {[](MediaSession& s) { s.title = "Next"; }, {{"title", "Next"}}},
      {[](MediaSession& s) { s.title = ""; }, {{"title", ""}}},
      {[](MediaSession& s) { s.bundleIdentifier = "b"; }, {{"bundleIdentifier", "b"}}},
      {[](MediaSession& s) { s.parentApplicationBundleIdentifier = "b"; },
       {{"parentApplicationBundleIdentifier", "b"}}},
  };
  for (const auto& [change, expected] : rows) {
    MediaSession session = tune();
    stream_ = SessionStream();
    next(session);
    change(session);
    json fields = tuneFields();
    fields.update(expected);
    EXPECT_EQ(next(session), full(fields));
    EXPECT_EQ(next(session), nullptr);
  }
}

TEST_F(SessionStreamTest, TakesTheSameImageForNoChange) {
  MediaSession session = tune();
  next(session);
  session.artwork = bytes("image");
  EXPECT_EQ(next(session), nullptr);
  session.elapsedTime = 2.0;
  session.artwork = bytes("image");
  EXPECT_EQ(next(session), difference({{"elapsedTime", 2.0}}));
}

TEST_F(SessionStreamTest, TakesTwoTextsThatReadTheSameForNoChange) {
  MediaSession session = tune();
  session.artist = "caf\xE8";
  session.album = std::string(5000, 'x') + "1";
  next(session);
  session.artist = "caf\xE9";
  session.album = std::string(5000, 'x') + "2";
  EXPECT_EQ(next(session), nullptr);
}

/// One small step of a session's life.
void step(std::optional<MediaSession>& session, std::mt19937& random) {
  const auto below = [&random](std::uint32_t limit) {
    return static_cast<std::uint32_t>(random() % limit);
  };
  if (!session || below(12) == 0) {
    if (session) {
      session.reset();
    } else {
      session = tune();
    }
    return;
  }
  const std::vector<std::string> texts{"", "one", "two", "\xff", "\n\"\\", "\xF0\x9F\x8E\xB5"};
  const std::string text = texts[below(6)];
  const auto maybe = [&]() { return below(3) == 0 ? std::nullopt : std::optional(text); };
  const auto number = [&]() -> std::optional<double> {
    if (below(4) == 0) return std::nullopt;
    if (below(6) == 0) return std::numeric_limits<double>::infinity();
    return below(5) * 0.1;
  };
  switch (below(10)) {
    case 0:
      session->bundleIdentifier = "app." + text;
      break;
    case 1:
      session->parentApplicationBundleIdentifier = maybe();
      break;
    case 2:
      session->trackIdentifier = text;
      break;
    case 3:
      session->title = text;
      break;
    case 4:
      session->artist = maybe();
      break;
    case 5:
      session->album = maybe();
      break;
    case 6:
      session->isPlaying = !session->isPlaying;
      break;
    case 7:
      session->elapsedTime = number();
      break;
    case 8:
      session->duration = number();
      break;
    default:
      session->artwork = below(3) == 0 ? nullptr : bytes(text);
      break;
  }
}

TEST(SessionStream, AddsUpToTheStateWhateverHappens) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    std::mt19937 random(seed);
    SessionStream stream;
    StreamReader reader;
    std::optional<MediaSession> session;
    int lines = 0;
    for (int round = 0; round < 200; ++round) {
      for (auto steps = random() % 3; steps > 0; --steps) step(session, random);
      const json before = reader.state();
      const std::optional<std::string> line = stream.next(session);
      const SessionFields fields = SessionFields::of(session);
      std::string now;
      appendObject(now, fields.values, fields.artwork.get());
      if (line) {
        ++lines;
        reader.read(*line);
      }
      ASSERT_EQ(reader.state(), json::parse(now)) << "seed " << seed << ", round " << round;
      // A difference always says something.
      if (line && line->starts_with(R"({"diff":true)")) {
        ASSERT_NE(reader.state(), before) << "seed " << seed << ", round " << round;
      }
    }
    EXPECT_GT(lines, 50) << "seed " << seed;
  }
}

}  // namespace
}  // namespace talmo::test
