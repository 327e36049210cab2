#include <fstream>

#include <gtest/gtest.h>

#include "platform/linux/browsers/DebuggingAddress.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

constexpr const char* path = "/devtools/browser/0eac60f0-b70b-4e9a-bafe-c473fb47d91c";

class DebuggingAddressTest : public testing::Test {
 protected:
  std::optional<DebuggingAddress> read(const std::string& note) {
    std::ofstream(file(), std::ios::binary) << note;
    return readDebuggingAddress(folder_.path());
  }

  std::filesystem::path file() const { return folder_.path() / "DevToolsActivePort"; }

  TemporaryFolder folder_;
};

TEST_F(DebuggingAddressTest, BothLinesAreNeeded) {
  const DebuggingAddress expected{.port = 37989, .path = path};
  EXPECT_EQ(read(std::string("37989\n") + path), expected);
  EXPECT_EQ(read(std::string("37989\n") + path + "\n"), expected);
  EXPECT_EQ(read("37989"), std::nullopt);
  EXPECT_EQ(read("37989\n"), std::nullopt);
  EXPECT_EQ(read(std::string("\n") + path), std::nullopt);
  EXPECT_EQ(read(""), std::nullopt);
}

TEST_F(DebuggingAddressTest, WhatIsNoPortIsNoAddress) {
  for (const char* port : {"0", "-1", "65536", "99999999999999999999", "12a", " 12", "0x50", "a"}) {
    EXPECT_EQ(read(std::string(port) + "\n" + path), std::nullopt) << port;
  }
  EXPECT_TRUE(read(std::string("65535\n") + path));
}

TEST_F(DebuggingAddressTest, WhatIsNoPathIsNoAddress) {
  for (const std::string text :
       {"devtools", "ws://example.com/devtools", "/a b", "/a\r", "/\xc3\xa4", "/a\tb"}) {
    EXPECT_EQ(read("37989\n" + text), std::nullopt) << text;
  }
  EXPECT_EQ(read(std::string("37989\n/a\0b", 10)), std::nullopt);
}

TEST_F(DebuggingAddressTest, WhateverIsThereInsteadOfANoteIsNone) {
  EXPECT_EQ(readDebuggingAddress(folder_.path()), std::nullopt);
  EXPECT_EQ(readDebuggingAddress(folder_.path() / "missing"), std::nullopt);
  EXPECT_EQ(read(std::string(1 << 20, 'x')), std::nullopt);
  EXPECT_EQ(read(std::string(1 << 20, '\n')), std::nullopt);
  std::filesystem::remove(file());
  std::filesystem::create_directory(file());
  EXPECT_EQ(readDebuggingAddress(folder_.path()), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
