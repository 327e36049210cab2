#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <poll.h>
#include <pthread.h>
#include <string>
#include <sys/socket.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "adapter/WriteWhole.h"

namespace talmo::test {
namespace {

class WriteWholeTest : public testing::Test {
 protected:
  WriteWholeTest() {
    std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(::pipe(pipe_.data()), 0);
  }
  ~WriteWholeTest() override {
    closeReader();
    closeWriter();
  }

  int writer() const { return pipe_[1]; }

  void closeReader() { close(pipe_[0]); }
  void closeWriter() { close(pipe_[1]); }

  /// All that comes out until the writer is closed.
  std::string readAll() const {
    std::string all;
    std::array<char, 10'000> buffer{};
    for (;;) {
      const ssize_t count = ::read(pipe_[0], buffer.data(), buffer.size());
      if (count <= 0) return all;
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }

 private:
  static void close(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
  }

  std::array<int, 2> pipe_{-1, -1};
};

/// More than a pipe holds, no two parts of it alike.
std::string longText() {
  std::string text;
  for (int number = 0; text.size() < 2'000'000; ++number) text += std::to_string(number) + ' ';
  return text;
}

TEST_F(WriteWholeTest, WritesMoreThanFitsAtOnce) {
  auto written = std::async(std::launch::async, [this] {
    const std::error_code error = writeWhole(writer(), longText());
    closeWriter();
    return error;
  });
  EXPECT_EQ(readAll(), longText());
  EXPECT_EQ(written.get(), std::error_code());
}

TEST_F(WriteWholeTest, WaitsForRoomInANonBlockingPipe) {
  ASSERT_EQ(::fcntl(writer(), F_SETFL, O_NONBLOCK), 0);
  auto written = std::async(std::launch::async, [this] {
    const std::error_code error = writeWhole(writer(), longText());
    closeWriter();
    return error;
  });
  EXPECT_EQ(readAll(), longText());
  EXPECT_EQ(written.get(), std::error_code());
}

std::atomic<int> interruptions = 0;

TEST_F(WriteWholeTest, GoesOnAfterAnInterruption) {
  struct sigaction action{};
  action.sa_handler = [](int) { ++interruptions; };
  struct sigaction before{};
  // Without SA_RESTART: a write that waits fails with EINTR.
  ASSERT_EQ(::sigaction(SIGUSR1, &action, &before), 0);
  std::promise<pthread_t> writing;
  std::error_code error;
  std::thread thread([&, text = longText()] {
    writing.set_value(::pthread_self());
    error = writeWhole(writer(), text);
    closeWriter();
  });
  const pthread_t handle = writing.get_future().get();
  pollfd room{.fd = writer(), .events = POLLOUT, .revents = 0};
  while (::poll(&room, 1, 0) == 1) std::this_thread::yield();
  // Nobody reads yet, so the writer waits for room whenever it is not being interrupted.
  for (int wanted = 1; wanted <= 1000; ++wanted) {
    ASSERT_EQ(::pthread_kill(handle, SIGUSR1), 0);
    while (interruptions < wanted) std::this_thread::yield();
  }
  EXPECT_EQ(readAll(), longText());
  thread.join();
  EXPECT_EQ(error, std::error_code());
  ::sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(WriteWholeTest, SaysThatThereIsNoReader) {
  closeReader();
  EXPECT_EQ(writeWhole(writer(), "x"), std::errc::broken_pipe);
}

TEST_F(WriteWholeTest, SaysWhatElseIsInTheWay) {
  const int unconnected = ::socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_GE(unconnected, 0);
  EXPECT_EQ(writeWhole(unconnected, "x"), std::errc::not_connected);
  ::close(unconnected);
}

}  // namespace
}  // namespace talmo::test
