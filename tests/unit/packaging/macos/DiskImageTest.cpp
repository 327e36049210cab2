#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/packaging/macos/BundleScriptTest.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class DiskImageTest : public BundleScriptTest {
 protected:
  /// `libraries`: what every program of the bundle is linked with, as otool lists it.
  int pack(const std::string& libraries) {
    const std::string otool = program("otool", "printf '%s:\\n" + libraries + "' \"$2\"");
    return run("DiskImage.cmake",
               {"HDIUTIL=" + program("hdiutil"), "OTOOL=" + otool, "APP=" + app().string(),
                "STAGE=" + stage().string(), "IMAGE=" + (folder() / "Talmo.dmg").string()});
  }

  std::filesystem::path stage() const { return folder() / "stage"; }
};

constexpr const char* systemLibraries =
    "\\t@rpath/Sparkle.framework/Versions/B/Sparkle (compatibility version 1.6.0, current version "
    "2.6.0)\\n"
    "\\t/usr/lib/libc++.1.dylib (compatibility version 1.0.0, current version 1700.255.0)\\n"
    "\\t/System/Library/Frameworks/AppKit.framework/Versions/C/AppKit (compatibility version "
    "45.0.0, current version 2487.0.0)\\n";

TEST_F(DiskImageTest, PacksTheBundleBesideALinkToItsPlace) {
  makeFile(stage() / "left from an earlier time");
  ASSERT_EQ(pack(systemLibraries), 0) << output();
  EXPECT_THAT(calls(), Contains(ElementsAre("hdiutil", "create", "-volname", "Talmo", "-srcfolder",
                                            stage().string(), "-format", "UDZO", "-ov",
                                            (folder() / "Talmo.dmg").string())));
  EXPECT_TRUE(std::filesystem::exists(stage() / "Talmo.app" / "Contents" / "MacOS" / "Talmo"));
  EXPECT_EQ(std::filesystem::read_symlink(stage() / "Talmo.app" / "Contents" / "Frameworks" /
                                          "MediaRemoteAdapter.framework" / "Versions" / "Current"),
            "A");
  EXPECT_EQ(std::filesystem::read_symlink(stage() / "Applications"), "/Applications");
  EXPECT_FALSE(std::filesystem::exists(stage() / "left from an earlier time"));
}

TEST_F(DiskImageTest, LooksAtTheProgramAndTheHelper) {
  ASSERT_EQ(pack(systemLibraries), 0) << output();
  EXPECT_THAT(calls(), Contains(ElementsAre("otool", "-L",
                                            (app() / "Contents" / "MacOS" / "Talmo").string())));
  EXPECT_THAT(
      calls(),
      Contains(ElementsAre(
          "otool", "-L",
          (frameworks() / "MediaRemoteAdapter.framework" / "MediaRemoteAdapter").string())));
}

TEST_F(DiskImageTest, RefusesWhatNeedsLibrariesOfThisMac) {
  const std::string library = "/opt/homebrew/opt/icu4c/lib/libicuuc.74.dylib";
  EXPECT_NE(pack(std::string(systemLibraries) + "\\t" + library +
                 " (compatibility version 74.0.0, current version 74.2.0)\\n"),
            0);
  EXPECT_THAT(output(), HasSubstr(library));
  EXPECT_THAT(calls(), Not(Contains(Contains("hdiutil"))));
}

}  // namespace
}  // namespace talmo::test
