#include <signal.h>

#include <gtest/gtest.h>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

TEST(PrivateDesktop, EndsWhatItsProgramsHaveStarted) {
  pid_t orphan = 0;
  {
    const PrivateDesktop desktop;
    // The program that starts it is gone at once; the started one ignores a polite request.
    const auto parent =
        desktop.start({"sh", "-c", "trap '' TERM; sleep 1000 & printf '%s' $!; exec true"});
    ASSERT_EQ(parent->waitForExit(std::chrono::seconds(10)), 0);
    // It bears its name from when it has become the program, which may be later than its parent's
    // end.
    std::vector<pid_t> found;
    ASSERT_TRUE(waitUntil([&] {
      found = desktop.processes("sleep");
      return !found.empty();
    }));
    ASSERT_EQ(found.size(), 1U);
    orphan = found[0];
    EXPECT_EQ(parent->output(), std::to_string(orphan));
  }
  // It is gone when whoever inherited it has taken notice.
  EXPECT_TRUE(waitUntil([orphan] { return ::kill(orphan, 0) == -1; }));
}

}  // namespace
}  // namespace talmo::test
