#include <array>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/TerminationSignals.h"

namespace talmo::test {
namespace {

constexpr std::array<int, 3> signals{SIGTERM, SIGINT, SIGHUP};

/// What the system says about a program that this process starts.
std::string statusOfAChild() {
  std::array<int, 2> ends{};
  EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
  const FileDescriptor reading(ends[0]);
  FileDescriptor writing(ends[1]);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, writing.get(), STDOUT_FILENO);
  std::array<std::string, 2> arguments{"cat", "/proc/self/status"};
  std::array<char*, 3> pointers{arguments[0].data(), arguments[1].data(), nullptr};
  pid_t child = -1;
  EXPECT_EQ(::posix_spawnp(&child, "cat", &actions, nullptr, pointers.data(), ::environ), 0);
  ::posix_spawn_file_actions_destroy(&actions);
  writing.reset();
  std::string text;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = ::read(reading.get(), buffer.data(), buffer.size())) > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  ::waitpid(child, nullptr, 0);
  return text;
}

/// Of a line of /proc/self/status, such as "SigBlk", the bits of the three signals.
std::uint64_t signalBits(const std::string& status, const std::string& line) {
  const std::size_t place = status.find(line + ":");
  EXPECT_NE(place, std::string::npos);
  const std::uint64_t all = std::stoull(status.substr(place + line.size() + 1), nullptr, 16);
  std::uint64_t ours = 0;
  for (const int signal : signals) ours |= all & (std::uint64_t{1} << (signal - 1));
  return ours;
}

/// The test itself may have been started to ignore some of the signals.
class TerminationSignalsTest : public testing::Test {
 protected:
  TerminationSignalsTest() {
    for (std::size_t index = 0; index < signals.size(); ++index) {
      ::sigaction(signals[index], nullptr, &before_[index]);
      ::signal(signals[index], SIG_DFL);
    }
  }
  ~TerminationSignalsTest() override {
    for (std::size_t index = 0; index < signals.size(); ++index) {
      ::sigaction(signals[index], &before_[index], nullptr);
    }
  }

 private:
  std::array<struct sigaction, signals.size()> before_{};
};

using TerminationSignalsDeathTest = TerminationSignalsTest;

TEST_F(TerminationSignalsTest, FirstSignalEndsTheMainLoop) {
  for (const int signal : signals) {
    LinuxDispatch dispatch;
    const TerminationSignals termination(dispatch);
    EXPECT_EQ(termination.received(), std::nullopt);
    dispatch.mainQueue().async([signal] { ::kill(::getpid(), signal); });
    dispatch.runMainLoop();
    EXPECT_EQ(termination.received(), signal);
  }
}

TEST_F(TerminationSignalsTest, SignalThatComesBeforeTheMainLoopIsNotLost) {
  LinuxDispatch dispatch;
  const TerminationSignals termination(dispatch);
  ::raise(SIGTERM);
  dispatch.runMainLoop();
  EXPECT_EQ(termination.received(), SIGTERM);
}

TEST_F(TerminationSignalsTest, SignalThatWakesAnotherThreadEndsTheMainLoop) {
  LinuxDispatch dispatch;
  const TerminationSignals termination(dispatch);
  dispatch.startThread("other", QualityOfService::unspecified, [] { ::raise(SIGINT); });
  dispatch.runMainLoop();
  EXPECT_EQ(termination.received(), SIGINT);
}

TEST_F(TerminationSignalsTest, IgnoredSignalStaysIgnored) {
  struct sigaction before{};
  struct sigaction ignore{};
  ignore.sa_handler = SIG_IGN;
  ::sigaction(SIGHUP, &ignore, &before);
  {
    LinuxDispatch dispatch;
    const TerminationSignals termination(dispatch);
    ::raise(SIGHUP);
    EXPECT_EQ(termination.received(), std::nullopt);
  }
  ::sigaction(SIGHUP, &before, nullptr);
}

TEST_F(TerminationSignalsTest, ProgramsThatAreStartedGetNothingOfThem) {
  LinuxDispatch dispatch;
  const TerminationSignals termination(dispatch);
  const std::string status = statusOfAChild();
  EXPECT_EQ(signalBits(status, "SigBlk"), 0U);
  EXPECT_EQ(signalBits(status, "SigIgn"), 0U);
}

TEST_F(TerminationSignalsDeathTest, SecondSignalEndsTheProcessAtOnce) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        LinuxDispatch dispatch;
        const TerminationSignals termination(dispatch);
        ::raise(SIGTERM);
        ::raise(SIGINT);
        ::_exit(1);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST_F(TerminationSignalsDeathTest, SignalsEndTheProcessOnceTheObjectIsGone) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        {
          LinuxDispatch dispatch;
          const TerminationSignals termination(dispatch);
        }
        ::raise(SIGTERM);
        ::_exit(1);
      },
      testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace talmo::test
