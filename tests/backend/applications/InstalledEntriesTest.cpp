#include <filesystem>
#include <map>
#include <memory>
#include <stdlib.h>
#include <string>

#include <gtest/gtest.h>

#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

/// The entries of the system alone, whatever the person has.
class InstalledEntriesTest : public testing::Test {
 protected:
  InstalledEntriesTest() {
    ::setenv("XDG_DATA_HOME", folder_.path().c_str(), 1);
    ::setenv("XDG_DATA_DIRS", "/usr/share", 1);
  }

  std::optional<std::string> url(const std::string& bundleID) {
    return workspace_.urlForApplication(bundleID);
  }

 private:
  TemporaryFolder folder_;
  LinuxDispatch dispatch_;
  LinuxWorkspace workspace_{dispatch_};
};

TEST_F(InstalledEntriesTest, ThePlayersOfTheDistributionAreFoundWhereTheyAreInstalled) {
  const std::map<std::string, std::string> entries{
      {"org.videolan.vlc", "vlc"}, {"org.atheme.audacious", "audacious"}, {"io.mpv.Mpv", "mpv"}};
  int installed = 0;
  for (const auto& [bundleID, id] : entries) {
    const std::string file = "/usr/share/applications/" + id + ".desktop";
    if (std::filesystem::exists(file)) {
      ++installed;
      EXPECT_EQ(url(bundleID), "file://" + file);
    } else {
      EXPECT_EQ(url(bundleID), std::nullopt) << bundleID;
    }
  }
  if (installed == 0) GTEST_SKIP() << "no player is installed here";
}

}  // namespace
}  // namespace talmo::test
