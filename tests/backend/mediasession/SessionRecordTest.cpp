#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/linux/mediasession/SessionRecord.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

constexpr const char* busId = "0123456789abcdef";

class SessionRecordTest : public testing::Test {
 protected:
  SessionRecordTest() { EXPECT_TRUE(record_.write(busId, order_)); }

  const std::filesystem::path& root() const { return folder_.path(); }
  std::filesystem::path ours() const { return root() / "talmo"; }
  std::filesystem::path file() const { return ours() / "media-session"; }

  std::string text() const {
    std::ifstream stream(file());
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  void setText(const std::string& text) const { std::ofstream(file()) << text; }

  const SessionOrder order_{{{":1.7", true}, {":1.12", false}}};

 private:
  const TemporaryFolder folder_;

 protected:
  const SessionRecord record_{root()};
};

TEST_F(SessionRecordTest, IsReadAsItWasWritten) {
  EXPECT_EQ(record_.read(busId), order_);
  ASSERT_TRUE(record_.write(busId, {}));
  EXPECT_EQ(record_.read(busId), SessionOrder());
}

TEST_F(SessionRecordTest, BelongsToOneBus) {
  EXPECT_EQ(record_.read("fedcba9876543210"), std::nullopt);
  EXPECT_EQ(record_.read(""), std::nullopt);
}

TEST_F(SessionRecordTest, IsPrivate) {
  struct stat status{};
  ASSERT_EQ(::stat(ours().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(::stat(file().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(SessionRecordTest, LeavesNothingElseBehind) {
  EXPECT_TRUE(record_.write(busId, {}));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(ours()), {}), 1);
}

TEST_F(SessionRecordTest, IsReplacedAsAWhole) {
  struct stat before{};
  ASSERT_EQ(::stat(file().c_str(), &before), 0);
  ASSERT_TRUE(record_.write(busId, {}));
  struct stat after{};
  ASSERT_EQ(::stat(file().c_str(), &after), 0);
  EXPECT_NE(before.st_ino, after.st_ino);
}

TEST_F(SessionRecordTest, IsIgnoredWhenDamaged) {
  const std::string whole = text();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    setText(whole.substr(0, length));
    const std::optional<SessionOrder> read = record_.read(busId);
    // A cut at the end of a line cannot be seen, and is harmless.
    if (length > 0 && whole[length - 1] == '\n') continue;
    EXPECT_EQ(read, std::nullopt) << length;
  }
  for (const char* damage : {"singing :1.3\n", "playing\n", "playing 1.3\n", "\n", "quiet :1.3"}) {
    setText(whole + damage);
    EXPECT_EQ(record_.read(busId), std::nullopt) << damage;
  }
  setText(whole + "quiet :1.3\n");
  EXPECT_NE(record_.read(busId), std::nullopt);
}

TEST_F(SessionRecordTest, IsIgnoredWhenItIsHuge) {
  std::string huge = text();
  while (huge.size() <= 70000) huge += "quiet :1.3\n";
  setText(huge);
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_TRUE(record_.write(busId, order_));
  EXPECT_EQ(record_.read(busId), order_);
}

TEST_F(SessionRecordTest, IsNoLinkNoPipeAndNoFolder) {
  const std::string whole = text();
  std::filesystem::rename(file(), root() / "elsewhere");
  std::filesystem::create_symlink(root() / "elsewhere", file());
  EXPECT_EQ(record_.read(busId), std::nullopt);
  std::filesystem::remove(file());
  ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_TRUE(record_.write(busId, order_));
  EXPECT_EQ(record_.read(busId), order_);
  std::filesystem::remove(file());
  std::filesystem::create_directory(file());
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_FALSE(record_.write(busId, order_));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(ours()), {}), 1);
}

TEST_F(SessionRecordTest, IsIgnoredWhereOthersCanWrite) {
  std::filesystem::permissions(ours(), std::filesystem::perms::all);
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_FALSE(record_.write(busId, order_));
  std::filesystem::permissions(ours(), std::filesystem::perms::owner_all);
  EXPECT_EQ(record_.read(busId), order_);
}

TEST_F(SessionRecordTest, IsIgnoredWhenItIsSomebodyElses) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  constexpr uid_t nobody = 65534;
  ASSERT_EQ(::chown(file().c_str(), nobody, nobody), 0);
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_TRUE(record_.write(busId, order_));
  EXPECT_EQ(record_.read(busId), order_);
  ASSERT_EQ(::chown(ours().c_str(), nobody, nobody), 0);
  EXPECT_EQ(record_.read(busId), std::nullopt);
  EXPECT_FALSE(record_.write(busId, order_));
}

TEST_F(SessionRecordTest, NeedsARuntimeFolder) {
  for (const char* folder : {"", "relative", "/nonexistent/folder"}) {
    const SessionRecord nowhere{folder};
    EXPECT_FALSE(nowhere.write(busId, order_)) << folder;
    EXPECT_EQ(nowhere.read(busId), std::nullopt) << folder;
  }
}

}  // namespace
}  // namespace talmo::test
