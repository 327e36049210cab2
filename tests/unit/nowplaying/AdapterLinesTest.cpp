#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "nowplaying/AdapterJson.h"
#include "nowplaying/AdapterLines.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(AdapterLines, KeepTheRestUntilItsLineFeedArrives) {
  AdapterLines lines;
  EXPECT_THAT(lines.append("{\"a\""), IsEmpty());
  EXPECT_THAT(lines.append(":1"), IsEmpty());
  EXPECT_THAT(lines.append("}\n{\"b"), ElementsAre("{\"a\":1}"));
  EXPECT_THAT(lines.append("\":2}\n"), ElementsAre("{\"b\":2}"));
}

TEST(AdapterLines, OfOnePieceComeInOrder) {
  AdapterLines lines;
  EXPECT_THAT(lines.append("one\ntwo\nthree"), ElementsAre("one", "two"));
  EXPECT_THAT(lines.append("\n"), ElementsAre("three"));
}

TEST(AdapterLines, LeaveEmptyOnesOut) {
  AdapterLines lines;
  EXPECT_THAT(lines.append("\n\none\n\n\ntwo\n\n"), ElementsAre("one", "two"));
  EXPECT_THAT(lines.append(""), IsEmpty());
}

TEST(AdapterLines, EndAtALineFeedOnly) {
  AdapterLines lines;
  EXPECT_THAT(lines.append(std::string("a\r\0b\n", 5)), ElementsAre(std::string("a\r\0b", 4)));
}

TEST(AdapterLines, ForgetTheUnfinishedLine) {
  AdapterLines lines;
  EXPECT_THAT(lines.append("half"), IsEmpty());
  lines.clear();
  EXPECT_THAT(lines.append("whole\n"), ElementsAre("whole"));
}

TEST(AdapterLines, HaveRoomForTheReader) {
  AdapterLines lines;
  lines.append("{");
  const std::vector<std::string> read = lines.append("}\n");
  ASSERT_THAT(read, SizeIs(1));
  EXPECT_GE(read[0].capacity(), read[0].size() + AdapterJson::padding);
}

TEST(AdapterLines, UpToTheBoundAreKept) {
  AdapterLines lines;
  EXPECT_THAT(lines.append(std::string(AdapterLines::maximumLength, 'x')), IsEmpty());
  const std::vector<std::string> read = lines.append("\nnext\n");
  ASSERT_THAT(read, SizeIs(2));
  EXPECT_EQ(read[0].size(), AdapterLines::maximumLength);
  EXPECT_EQ(read[1], "next");
}

TEST(AdapterLines, AboveTheBoundAreDroppedAndTheNextIsRead) {
  AdapterLines lines;
  for (std::size_t sent = 0; sent <= AdapterLines::maximumLength; sent += 1 << 20) {
    EXPECT_THAT(lines.append(std::string(1 << 20, 'x')), IsEmpty());
  }
  EXPECT_THAT(lines.append("its end"), IsEmpty());
  EXPECT_THAT(lines.append(" at last\nnext\n"), ElementsAre("next"));
}

TEST(AdapterLines, AboveTheBoundByTheirEndAreDroppedToo) {
  AdapterLines lines;
  EXPECT_THAT(lines.append(std::string(AdapterLines::maximumLength, 'x')), IsEmpty());
  EXPECT_THAT(lines.append("x\nnext\n"), ElementsAre("next"));
}

TEST(AdapterLines, AboveTheBoundInOnePieceAreDroppedToo) {
  AdapterLines lines;
  EXPECT_THAT(lines.append(std::string(AdapterLines::maximumLength + 1, 'x') + "\nnext\n"),
              ElementsAre("next"));
}

TEST(AdapterLines, AreTheSameWhateverThePieces) {
  std::mt19937 random(7);
  std::string stream;
  std::vector<std::string> expected;
  for (int count = 0; count < 300; ++count) {
    std::string line(random() % 40, static_cast<char>('a' + count % 26));
    stream += line + '\n';
    if (!line.empty()) expected.push_back(std::move(line));
  }
  for (int round = 0; round < 50; ++round) {
    AdapterLines lines;
    std::vector<std::string> read;
    for (std::size_t begin = 0; begin < stream.size();) {
      const std::size_t length = 1 + random() % 60;
      std::ranges::move(lines.append(stream.substr(begin, length)), std::back_inserter(read));
      begin += length;
    }
    ASSERT_EQ(read, expected);
  }
}

}  // namespace
}  // namespace talmo::test
