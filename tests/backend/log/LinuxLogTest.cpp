#include <algorithm>
#include <array>
#include <climits>
#include <fcntl.h>
#include <map>
#include <sstream>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/log/LinuxLog.h"

namespace talmo {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::MatchesRegex;

/// A pipe whose writing end stands for standard error.
class LinuxLogTest : public testing::Test {
 protected:
  LinuxLogTest() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    reading_ = FileDescriptor(ends[0]);
    writing_ = FileDescriptor(ends[1]);
  }

  void makeReadingNonBlocking() const { ::fcntl(reading_.get(), F_SETFL, O_NONBLOCK); }

  /// What has been written so far.
  std::string output() const {
    makeReadingNonBlocking();
    std::string text;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(reading_.get(), buffer.data(), buffer.size())) > 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  FileDescriptor reading_;
  FileDescriptor writing_;
};

TEST_F(LinuxLogTest, LineHasTimeLevelCategoryAndMessage) {
  LinuxLog log(writing_.get());
  log.write(LogLevel::info, "nl.brelm.Talmo", "coordinator", "Event tap running");
  EXPECT_THAT(output(), MatchesRegex("[0-2][0-9]:[0-5][0-9]:[0-6][0-9]\\.[0-9][0-9][0-9] info "
                                     "\\[coordinator\\] Event tap running\n"));
}

TEST_F(LinuxLogTest, LevelsAreNamed) {
  LinuxLog log(writing_.get());
  log.write(LogLevel::debug, "s", "c", "0");
  log.write(LogLevel::info, "s", "c", "1");
  log.write(LogLevel::notice, "s", "c", "2");
  log.write(LogLevel::error, "s", "c", "3");
  EXPECT_THAT(output(),
              MatchesRegex(".{12} debug \\[c\\] 0\n.{12} info \\[c\\] 1\n.{12} notice \\[c\\] 2\n"
                           ".{12} error \\[c\\] 3\n"));
}

TEST_F(LinuxLogTest, MessageOfSeveralLinesStaysOneLine) {
  LinuxLog log(writing_.get());
  log.write(LogLevel::error, "s", "web\ntab", "first\nsecond\xff");
  EXPECT_THAT(output(), EndsWith(" error [web\\ntab] first\\nsecond\ufffd\n"));
}

TEST_F(LinuxLogTest, LongLineIsCutToOnePieceThatAPipeTakes) {
  LinuxLog log(writing_.get());
  log.write(LogLevel::info, "s", "c", std::string(100'000, 'm'));
  const std::string text = output();
  EXPECT_EQ(text.size(), static_cast<std::size_t>(PIPE_BUF));
  EXPECT_THAT(text, EndsWith("mmm\n"));
}

TEST_F(LinuxLogTest, FullPipeLosesLinesAndHoldsNobodyUp) {
  LinuxLog log(writing_.get());
  for (int line = 0; line < 2000; ++line) {
    log.write(LogLevel::info, "s", "c", std::string(100, 'm'));
  }
  const std::string first = output();
  EXPECT_LT(std::count(first.begin(), first.end(), '\n'), 2000);
  EXPECT_THAT(first, EndsWith("mmm\n"));
  log.write(LogLevel::info, "s", "c", "again");
  EXPECT_THAT(output(), EndsWith("again\n"));
}

TEST_F(LinuxLogTest, ReaderThatWentAwayIsHarmless) {
  LinuxLog log(writing_.get());
  reading_.reset();
  // Were anything written now, a signal would end the test.
  log.write(LogLevel::info, "s", "c", "nobody reads this");
}

TEST_F(LinuxLogTest, ClosedDescriptorIsHarmless) {
  LinuxLog log(writing_.get());
  writing_.reset();
  log.write(LogLevel::info, "s", "c", "nobody reads this");
  EXPECT_EQ(output(), "");
}

TEST_F(LinuxLogTest, LinesOfSeveralThreadsStayWhole) {
  constexpr int writers = 4;
  constexpr int linesPerWriter = 50;
  LinuxLog log(writing_.get());
  std::vector<std::thread> threads;
  for (int writer = 0; writer < writers; ++writer) {
    threads.emplace_back([&log, writer] {
      for (int line = 0; line < linesPerWriter; ++line) {
        log.write(LogLevel::info, "s", std::to_string(writer),
                  std::string(static_cast<std::size_t>(line), 'm') + ".");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::istringstream lines(output());
  std::map<std::string, std::size_t> linesOfWriter;
  for (std::string line; std::getline(lines, line);) {
    const std::string start = "HH:MM:SS.mmm info [";
    const std::string writer = line.substr(start.size(), 1);
    const std::size_t number = linesOfWriter[writer]++;
    EXPECT_EQ(line.substr(start.size()), writer + "] " + std::string(number, 'm') + ".");
  }
  EXPECT_THAT(linesOfWriter,
              ElementsAre(testing::Pair("0", linesPerWriter), testing::Pair("1", linesPerWriter),
                          testing::Pair("2", linesPerWriter), testing::Pair("3", linesPerWriter)));
}

TEST_F(LinuxLogTest, JournalIsRecognisedByDeviceAndInode) {
  struct stat status{};
  ASSERT_EQ(::fstat(writing_.get(), &status), 0);
  const std::string device = std::to_string(status.st_dev);
  const std::string inode = std::to_string(status.st_ino);
  EXPECT_TRUE(LinuxLog::isConnectedToJournal(writing_.get(), (device + ":" + inode).c_str()));
  EXPECT_FALSE(LinuxLog::isConnectedToJournal(writing_.get(), (device + ":1" + inode).c_str()));
  EXPECT_FALSE(LinuxLog::isConnectedToJournal(writing_.get(), (device + "1:" + inode).c_str()));
  for (const char* other : {"", ":", "nonsense", "1:", ":1"}) {
    EXPECT_FALSE(LinuxLog::isConnectedToJournal(writing_.get(), other)) << other;
  }
  EXPECT_FALSE(LinuxLog::isConnectedToJournal(writing_.get(), nullptr));
  EXPECT_FALSE(LinuxLog::isConnectedToJournal(-1, (device + ":" + inode).c_str()));
}

TEST(LinuxLog, JournalEntryHasFieldsOfItsOwn) {
  EXPECT_THAT(LinuxLog::journalFields(LogLevel::error, "nl.brelm.Talmo", "web-tab", "no\nanswer"),
              ElementsAre("MESSAGE=no\\nanswer", "PRIORITY=3", "SYSLOG_IDENTIFIER=talmo",
                          "TALMO_SUBSYSTEM=nl.brelm.Talmo", "TALMO_CATEGORY=web-tab"));
  EXPECT_EQ(LinuxLog::journalFields(LogLevel::notice, "s", "c", "m")[1], "PRIORITY=5");
  EXPECT_EQ(LinuxLog::journalFields(LogLevel::info, "s", "c", "m")[1], "PRIORITY=6");
  EXPECT_EQ(LinuxLog::journalFields(LogLevel::debug, "s", "c", "m")[1], "PRIORITY=7");
}

}  // namespace
}  // namespace talmo
