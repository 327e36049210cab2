#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/processes/LinuxChildProcesses.h"
#include "platform/linux/processes/OwnExecutables.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

TEST(OwnExecutables, StandInForTheMacsByTheirWholePath) {
  EXPECT_EQ(executableToStart("/usr/bin/osascript", "/a b"), "/a b/libexec/osascript");
  EXPECT_EQ(executableToStart("/usr/bin/pkill", "/a b"), "/a b/libexec/pkill");
  for (const char* other : {"/usr/bin/perl", "/usr/bin/osascript2", "/usr/local/bin/osascript",
                            "/other/usr/bin/osascript", "osascript", "/bin/osascript", ""}) {
    EXPECT_EQ(executableToStart(other, "/bundle"), other);
  }
}

TEST(OwnExecutables, AreStartedFromTheBundlesFolderWithTheArgumentsAsTheyAre) {
  const TemporaryFolder bundle;
  std::filesystem::create_directories(bundle.path() / "libexec");
  std::filesystem::create_symlink(TALMO_TEST_CHILD, bundle.path() / "libexec" / "osascript");
  LinuxChildProcesses children(bundle.path());

  const std::string script =
      "tell application id \"a.b\"\n  return \"$(id) 'x' \\\"\\\\n\\\" `y`\" -- \xC3\xA9\nend tell";
  const auto child =
      children.make({.executable = "/usr/bin/osascript", .arguments = {"show", "-e", script, ""}});
  ASSERT_EQ(child->launch(), std::nullopt);
  EXPECT_EQ(child->standardOutput()->readToEnd(), std::string("-e") + '\0' + script + '\0' + '\0');
  child->waitUntilExit();
}

TEST(OwnExecutables, ThatAreMissingFailTheLaunch) {
  const TemporaryFolder bundle;
  LinuxChildProcesses children(bundle.path());
  EXPECT_NE(children.make({.executable = "/usr/bin/osascript"})->launch(), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
