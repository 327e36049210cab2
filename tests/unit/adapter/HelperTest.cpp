#include <csignal>
#include <cstdio>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapter/Helper.h"
#include "tests/unit/adapter/FakeSessionSource.h"
#include "tests/unit/adapter/StreamReader.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// A file of no name.
class TextFile {
 public:
  TextFile() : file_(std::tmpfile()) {}
  ~TextFile() { std::fclose(file_); }
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;

  int descriptor() const { return ::fileno(file_); }

  std::string text() const {
    std::string all(1U << 20U, '\0');
    const ssize_t count = ::pread(descriptor(), all.data(), all.size(), 0);
    return all.substr(0, static_cast<std::size_t>(count));
  }

  std::vector<std::string> lines() const {
    std::vector<std::string> lines(1);
    for (const char character : text()) {
      lines.back() += character;
      if (character == '\n') lines.emplace_back();
    }
    EXPECT_THAT(lines.back(), IsEmpty());
    lines.pop_back();
    return lines;
  }

 private:
  std::FILE* file_;
};

class HelperTest : public testing::Test {
 protected:
  HelperTest() { std::signal(SIGPIPE, SIG_IGN); }

  int run(const std::vector<std::string>& arguments) {
    return run(arguments, output_.descriptor());
  }

  int run(const std::vector<std::string>& arguments, int output) {
    return runHelper(
        arguments,
        [this] {
          auto source = std::make_unique<FakeSessionSource>(sessions_, calls_);
          source->delivers = delivers_;
          return source;
        },
        output, errors_.descriptor());
  }

  std::deque<std::optional<MediaSession>> sessions_;
  bool delivers_ = true;
  FakeSessionSource::Calls calls_;
  TextFile output_;
  TextFile errors_;
};

const MediaSession tune{.bundleIdentifier = "a",
                        .title = "b",
                        .isPlaying = true,
                        .artwork = std::make_shared<std::string>("image")};

MediaSession paused() {
  MediaSession session = tune;
  session.isPlaying = false;
  return session;
}

TEST_F(HelperTest, GetsTheSessionAsOneLine) {
  sessions_ = {tune};
  EXPECT_EQ(run({"get"}), 0);
  EXPECT_EQ(output_.text(),
            R"({"artworkData":"aW1hZ2U=","bundleIdentifier":"a","playing":true,"title":"b"})"
            "\n");
  EXPECT_THAT(calls_.wantedArtwork, ElementsAre(true));
  EXPECT_THAT(errors_.text(), IsEmpty());
}

TEST_F(HelperTest, GetsNoArtworkThatIsNotWanted) {
  // Even from a source that gives it all the same.
  sessions_ = {tune};
  EXPECT_EQ(run({"get", "--no-artwork"}), 0);
  EXPECT_EQ(output_.text(), "{\"bundleIdentifier\":\"a\",\"playing\":true,\"title\":\"b\"}\n");
  EXPECT_THAT(calls_.wantedArtwork, ElementsAre(false));
}

TEST_F(HelperTest, GetsAnEmptyObjectWhenNobodyOwnsASession) {
  EXPECT_EQ(run({"get"}), 0);
  EXPECT_EQ(output_.text(), "{}\n");
}

TEST_F(HelperTest, CannotGetIntoAClosedOutput) {
  EXPECT_EQ(run({"get"}, -1), 1);
  EXPECT_THAT(errors_.lines(), ElementsAre(StartsWith("mediaremote-adapter: cannot write: ")));
}

TEST_F(HelperTest, StreamsEachChangeUntilTheEnd) {
  sessions_ = {tune, tune, paused(), std::nullopt};
  EXPECT_EQ(run({"stream"}), 0);
  EXPECT_THAT(output_.lines(),
              ElementsAre("{\"diff\":false,\"payload\":{\"artworkData\":\"aW1hZ2U=\","
                          "\"bundleIdentifier\":\"a\",\"playing\":true,\"title\":\"b\"}}\n",
                          "{\"diff\":true,\"payload\":{\"playing\":false}}\n",
                          "{\"diff\":false,\"payload\":{}}\n"));
  EXPECT_THAT(calls_.wantedArtwork, ElementsAre(true, true, true, true));
}

TEST_F(HelperTest, EndsAStreamQuietlyWhenNobodyReadsIt) {
  sessions_ = {tune, paused()};
  int ends[2] = {-1, -1};
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  EXPECT_EQ(run({"stream"}, ends[1]), 0);
  ::close(ends[1]);
  EXPECT_EQ(calls_.wantedArtwork.size(), 1U);

  EXPECT_EQ(run({"stream"}, -1), 0);
  EXPECT_THAT(errors_.text(), IsEmpty());
}

TEST_F(HelperTest, SaysWhenAStreamCannotBeWritten) {
  const int unconnected = ::socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_GE(unconnected, 0);
  sessions_ = {tune, paused()};
  EXPECT_EQ(run({"stream"}, unconnected), 1);
  ::close(unconnected);
  EXPECT_THAT(errors_.lines(), ElementsAre(StartsWith("mediaremote-adapter: cannot write: ")));
}

TEST_F(HelperTest, SendsACommand) {
  EXPECT_EQ(run({"send", "4"}), 0);
  EXPECT_THAT(calls_.sent, ElementsAre(4));
  EXPECT_THAT(output_.text(), IsEmpty());
  EXPECT_THAT(errors_.text(), IsEmpty());
}

TEST_F(HelperTest, SaysWhenACommandWasNotDelivered) {
  delivers_ = false;
  EXPECT_EQ(run({"send", "117"}), 1);
  EXPECT_THAT(calls_.sent, ElementsAre(117));
  EXPECT_EQ(errors_.text(), "mediaremote-adapter: command 117 was not delivered\n");
}

TEST_F(HelperTest, TellsItsUsageWithoutAskingForASession) {
  EXPECT_EQ(run({"send", "play"}), 2);
  EXPECT_THAT(calls_.sent, IsEmpty());
  EXPECT_THAT(output_.text(), IsEmpty());
  EXPECT_THAT(errors_.lines(), ElementsAre(StartsWith("mediaremote-adapter: usage: ")));
}

TEST_F(HelperTest, StreamsArtworkOfMegabytes) {
  MediaSession session = tune;
  session.artwork = std::make_shared<std::string>(600'000, '\xff');
  sessions_ = {session};
  EXPECT_EQ(run({"stream"}), 0);
  StreamReader reader;
  ASSERT_EQ(output_.lines().size(), 1U);
  reader.read(output_.text());
  EXPECT_EQ(reader.state().at("artworkData"), std::string(800'000, '/'));
}

}  // namespace
}  // namespace talmo::test
