#include <atomic>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/linux/applications/ProcessTable.h"

namespace talmo::test {
namespace {

TEST(ProcessTable, IsAskedAboutProcessesThatEndInTheMiddleOfTheAnswer) {
  // Far more than it takes for one of them to end between the opening and the reading of its file.
  constexpr int children = 200;
  std::atomic<pid_t> current = ::getpid();
  std::atomic<bool> isOver = false;
  const std::jthread starter([&] {
    for (int count = 0; count < children; ++count) {
      const pid_t child = ::fork();
      if (child == 0) ::_exit(0);
      current = child;
      ::waitpid(child, nullptr, 0);
    }
    isOver = true;
  });
  int questions = 0;
  for (; !isOver; ++questions) {
    const ProcessIdentifier parent = ProcessTable::parent(current);
    EXPECT_TRUE(parent == 0 || parent == ::getpid() || parent == ::getppid()) << parent;
  }
  EXPECT_GT(questions, children);
}

}  // namespace
}  // namespace talmo::test
