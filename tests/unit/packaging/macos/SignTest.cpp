#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/packaging/macos/BundleScriptTest.h"

namespace talmo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;
using testing::SizeIs;

using Call = std::vector<std::string>;

class SignTest : public BundleScriptTest {
 protected:
  int sign(const std::string& identity, const std::string& codesign) {
    return run("Sign.cmake",
               {"CODESIGN=" + codesign, "IDENTITY=" + identity, "APP=" + app().string()});
  }
  int sign(const std::string& identity) { return sign(identity, program("codesign")); }

  /// What was signed, in order, relative to the bundle.
  std::vector<std::string> signedPaths() const {
    std::vector<std::string> paths;
    for (const Call& call : calls()) {
      paths.push_back(std::filesystem::path(call.back()).lexically_relative(app()).string());
    }
    return paths;
  }
};

const std::string adHocEntitlements = TALMO_PACKAGING "/TalmoAdHoc.entitlements";
const std::string entitlements = TALMO_PACKAGING "/Talmo.entitlements";

TEST_F(SignTest, SignsTheHelperBeforeTheBundleAroundIt) {
  ASSERT_EQ(sign("-"), 0) << output();
  EXPECT_THAT(signedPaths(), ElementsAre("Contents/Frameworks/MediaRemoteAdapter.framework", "."));
}

TEST_F(SignTest, SignsForThisMacWithoutATimeStamp) {
  ASSERT_EQ(sign("-"), 0) << output();
  ASSERT_THAT(calls(), SizeIs(2));
  EXPECT_THAT(calls()[0], ElementsAre("codesign", "--force", "--sign", "-", "--options", "runtime",
                                      "--timestamp=none", testing::_));
  EXPECT_THAT(calls()[1],
              ElementsAre("codesign", "--force", "--sign", "-", "--options", "runtime",
                          "--timestamp=none", "--entitlements", adHocEntitlements, app().string()));
}

TEST_F(SignTest, SignsForEverybodyWithATimeStampAndTheLeastEntitlements) {
  const std::string identity = "Developer ID Application: A (B)";
  ASSERT_EQ(sign(identity), 0) << output();
  ASSERT_THAT(calls(), SizeIs(2));
  EXPECT_THAT(calls()[0], IsSupersetOf({"runtime", "--timestamp"}));
  EXPECT_THAT(calls()[0], Not(Contains("--entitlements")));
  EXPECT_THAT(calls()[1],
              ElementsAre("codesign", "--force", "--sign", identity, "--options", "runtime",
                          "--timestamp", "--entitlements", entitlements, app().string()));
}

TEST_F(SignTest, SignsEachPartOfSparkleFirst) {
  makeFile(frameworks() / "Sparkle.framework" / "Versions" / "B" / "Sparkle");
  ASSERT_EQ(sign("-"), 0) << output();
  const std::string sparkle = "Contents/Frameworks/Sparkle.framework";
  EXPECT_THAT(signedPaths(),
              ElementsAre(sparkle + "/Versions/B/XPCServices/Installer.xpc",
                          sparkle + "/Versions/B/XPCServices/Downloader.xpc",
                          sparkle + "/Versions/B/Autoupdate", sparkle + "/Versions/B/Updater.app",
                          sparkle, "Contents/Frameworks/MediaRemoteAdapter.framework", "."));
  EXPECT_THAT(calls()[1], Contains("--preserve-metadata=entitlements"));
}

TEST_F(SignTest, EndsWithTheFirstSignatureThatFails) {
  EXPECT_NE(sign("-", program("codesign", "exit 1")), 0);
  EXPECT_THAT(calls(), SizeIs(1));
}

}  // namespace
}  // namespace talmo::test
