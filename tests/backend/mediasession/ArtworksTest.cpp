#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/linux/mediasession/Artworks.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

class ArtworksTest : public testing::Test {
 protected:
  std::filesystem::path file(const std::string& name) const { return folder_.path() / name; }
  std::string url(const std::string& name) const { return "file://" + file(name).string(); }

  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return url(name);
  }

  /// The bytes, or a word for none.
  std::string read(const std::string& url) {
    const std::shared_ptr<const std::string> bytes = artworks_.read(url);
    return bytes ? *bytes : "none";
  }

  Artworks artworks_;

 private:
  const TemporaryFolder folder_;
};

TEST_F(ArtworksTest, AreReadFromFiles) {
  const std::string bytes("\x89PNG\r\n\0\xFF", 8);
  EXPECT_EQ(read(write("cover.png", bytes)), bytes);
  write("with space.png", "spaced");
  EXPECT_EQ(read("file://localhost" + file("with%20space.png").string()), "spaced");
}

TEST_F(ArtworksTest, AreTheSameObjectWhileTheFileIsTheSame) {
  const std::string cover = write("cover", "one");
  const auto first = artworks_.read(cover);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(artworks_.read(cover), first);
  // Another file with the same picture, as players make for each track of an album.
  EXPECT_EQ(artworks_.read(write("copy", "one")), first);
  EXPECT_EQ(*first, "one");
}

TEST_F(ArtworksTest, AreReadAgainWhenTheFileChanges) {
  const std::string cover = write("cover", "one");
  EXPECT_EQ(read(cover), "one");
  write("cover", "another");
  EXPECT_EQ(read(cover), "another");
  write("new", "neither");
  std::filesystem::rename(file("new"), file("cover"));
  EXPECT_EQ(read(cover), "neither");
  // The same size in the same place, later.
  write("cover", "NEITHER");
  std::filesystem::last_write_time(
      file("cover"), std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5));
  EXPECT_EQ(read(cover), "NEITHER");
  std::filesystem::remove(file("cover"));
  EXPECT_EQ(read(cover), "none");
  write("cover", "back");
  EXPECT_EQ(read(cover), "back");
}

TEST_F(ArtworksTest, AreRegularFilesOnly) {
  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  EXPECT_EQ(read(url("pipe")), "none");
  std::filesystem::create_directory(file("folder"));
  EXPECT_EQ(read(url("folder")), "none");
  EXPECT_EQ(read("file:///dev/zero"), "none");
  EXPECT_EQ(read(url("missing")), "none");
  EXPECT_EQ(read(write("empty", "")), "none");
}

TEST_F(ArtworksTest, AreBounded) {
  const std::string largest = write("largest", std::string(Artworks::largest, 'x'));
  const auto bytes = artworks_.read(largest);
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(bytes->size(), Artworks::largest);
  EXPECT_EQ(read(write("larger", std::string(Artworks::largest + 1, 'x'))), "none");
  EXPECT_EQ(read("data:," + std::string(Artworks::largest + 1, 'x')), "none");
  // A file whose size is not known beforehand.
  EXPECT_NE(read("file:///proc/self/stat"), "none");
}

TEST_F(ArtworksTest, AreReadFromDataUrls) {
  EXPECT_EQ(read("data:image/png;base64,iVBORw0KGgo="), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(read("DATA:image/png;charset=x;BASE64,aGk%3D"), "hi");
  EXPECT_EQ(read("data:;base64,aGk"), "hi");
  EXPECT_EQ(read("data:text/plain,a%20b,c"), "a b,c");
  EXPECT_EQ(read("data:image/png;base64,!!!!"), "none");
  EXPECT_EQ(read("data:image/png;base64,"), "none");
  EXPECT_EQ(read("data:image/png"), "none");
  const auto first = artworks_.read("data:,hello");
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(artworks_.read("data:,hello"), first);
}

TEST_F(ArtworksTest, AreFetchedFromNowhere) {
  const std::string cover = write("cover", "one");
  for (const std::string& address :
       {std::string(), "http://127.0.0.1" + file("cover").string(),
        std::string("https://i.example/cover.png"), "ftp://localhost" + file("cover").string(),
        "file://elsewhere" + file("cover").string(), file("cover").string()}) {
    EXPECT_EQ(read(address), "none") << address;
  }
  EXPECT_EQ(read(cover), "one");
}

}  // namespace
}  // namespace talmo::test
