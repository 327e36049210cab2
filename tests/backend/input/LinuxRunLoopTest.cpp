#include <array>
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/input/LinuxRunLoop.h"
#include "platform/linux/input/LinuxRunLoopSource.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// Serves the reading end of a pipe.
class PipeSource : public LinuxRunLoopSource {
 public:
  explicit PipeSource(std::function<void(PipeSource&)> onServe) : onServe_(std::move(onServe)) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("no pipe");
    reading_ = FileDescriptor(ends[0]);
    writing_ = FileDescriptor(ends[1]);
    descriptor_ = ends[0];
  }

  std::span<const int> descriptors() const override {
    if (isEnded) return {};
    return {&descriptor_, 1};
  }
  std::optional<Uptime> deadline() const override { return due; }
  void serve() override {
    char byte = 0;
    while (::read(reading_.get(), &byte, 1) == 1) ++received;
    onServe_(*this);
  }

  void write() {
    const char byte = 'x';
    [[maybe_unused]] const ssize_t ignored = ::write(writing_.get(), &byte, 1);
  }

  std::optional<Uptime> due;
  bool isEnded = false;
  int received = 0;

 private:
  const std::function<void(PipeSource&)> onServe_;
  FileDescriptor reading_;
  FileDescriptor writing_;
  int descriptor_ = -1;
};

std::shared_ptr<LinuxRunLoop> runLoop() {
  return LinuxRunLoop::current();
}

TEST(LinuxRunLoop, IsOnePerThread) {
  std::shared_ptr<LinuxRunLoop> other;
  std::thread([&other] { other = runLoop(); }).join();
  EXPECT_EQ(runLoop(), runLoop());
  EXPECT_NE(runLoop(), other);
}

TEST(LinuxRunLoop, ServesASourceThatBecomesReadable) {
  const auto source = std::make_shared<PipeSource>([](PipeSource& served) {
    if (served.received == 1) runLoop()->stop();
  });
  runLoop()->addSource(source);
  std::thread writer([&source] { source->write(); });
  runLoop()->run();
  writer.join();
  EXPECT_EQ(source->received, 1);
}

TEST(LinuxRunLoop, ServesASourceAtItsDeadline) {
  const Uptime due = std::chrono::steady_clock::now() + 20ms;
  std::optional<Uptime> served;
  const auto source = std::make_shared<PipeSource>([&](PipeSource& self) {
    if (!self.due || std::chrono::steady_clock::now() < *self.due) return;
    served = std::chrono::steady_clock::now();
    runLoop()->stop();
  });
  source->due = due;
  runLoop()->addSource(source);
  runLoop()->run();
  ASSERT_TRUE(served);
  EXPECT_GE(*served, due);
}

TEST(LinuxRunLoop, LetsGoOfASourceThatHasEndedAndGoesOn) {
  auto source = std::make_shared<PipeSource>([](PipeSource& served) {
    if (served.received > 0) served.isEnded = true;
  });
  const std::weak_ptr<PipeSource> weak = source;
  source->write();
  runLoop()->addSource(source);
  source.reset();
  bool wasGone = false;
  const std::shared_ptr<LinuxRunLoop> ours = runLoop();
  std::thread other([&] {
    while (!weak.expired()) std::this_thread::yield();
    ours->performBlock([&] {
      wasGone = true;
      ours->stop();
    });
    ours->wakeUp();
  });
  ours->run();
  other.join();
  EXPECT_TRUE(wasGone);
}

TEST(LinuxRunLoop, LetsGoOfItsSourcesWhenRunReturns) {
  auto source = std::make_shared<PipeSource>([](PipeSource&) {});
  const std::weak_ptr<PipeSource> weak = source;
  runLoop()->addSource(std::move(source));
  runLoop()->performBlock([] { runLoop()->stop(); });
  runLoop()->run();
  EXPECT_TRUE(weak.expired());
}

TEST(LinuxRunLoop, StopInABlockLeavesTheNextBlocksForTheNextRun) {
  std::atomic<int> runs = 0;
  runLoop()->performBlock([] { runLoop()->stop(); });
  runLoop()->performBlock([&runs] {
    ++runs;
    runLoop()->stop();
  });
  runLoop()->run();
  EXPECT_EQ(runs, 0);
  runLoop()->run();
  EXPECT_EQ(runs, 1);
}

TEST(LinuxRunLoop, BlocksThatKeepComingDoNotStarveTheSources) {
  const auto source = std::make_shared<PipeSource>([](PipeSource& served) {
    if (served.received > 0) runLoop()->stop();
  });
  source->write();
  runLoop()->addSource(source);
  std::function<void()> again = [&again] {
    runLoop()->performBlock(again);
    runLoop()->wakeUp();
  };
  again();
  runLoop()->run();
  EXPECT_EQ(source->received, 1);
  // Nothing of this test is left for the next one of this thread.
  again = [] {};
  runLoop()->performBlock([] { runLoop()->stop(); });
  runLoop()->run();
}

}  // namespace
}  // namespace talmo::test
