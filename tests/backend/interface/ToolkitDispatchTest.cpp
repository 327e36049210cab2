// The main queue where the toolkit's loop serves it: the contract of every `Dispatch`, and what is
// particular about loops inside that loop.

#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <QApplication>
#include <QEventLoop>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "tests/backend/dispatch/LinuxDispatchWorld.h"
#include "tests/contract/DispatchContract.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

/// The program's application, without a display.
class OffscreenApplication : public testing::Environment {
 public:
  void SetUp() override {
    static std::array<char, 5> program{"test"};
    static std::array<char, 10> option{"-platform"};
    static std::array<char, 10> platform{"offscreen"};
    static std::array<char*, 4> arguments{program.data(), option.data(), platform.data(), nullptr};
    static int count = 3;
    application_ = std::make_unique<QApplication>(count, arguments.data());
  }
  void TearDown() override { application_.reset(); }

 private:
  std::unique_ptr<QApplication> application_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new OffscreenApplication);

INSTANTIATE_TEST_SUITE_P(Toolkit, DispatchContract,
                         testing::Values([] { return std::make_unique<LinuxDispatchWorld>(); }),
                         [](const auto&) { return "RealTime"; });

TEST(ToolkitDispatch, ServesWhatWasThereBeforeTheLoop) {
  LinuxDispatch dispatch;
  std::vector<int> order;
  for (int item = 0; item < 3; ++item) {
    dispatch.mainQueue().async([&order, item] { order.push_back(item); });
  }
  dispatch.mainQueue().async([&dispatch] { dispatch.stopMainLoop(); });
  dispatch.runMainLoop();
  EXPECT_THAT(order, ElementsAre(0, 1, 2));
}

TEST(ToolkitDispatch, ServesTheQueueInALoopInsideAnItem) {
  LinuxDispatch dispatch;
  std::vector<int> order;
  QEventLoop inner;
  dispatch.mainQueue().async([&] {
    order.push_back(1);
    inner.exec();
    order.push_back(4);
    dispatch.stopMainLoop();
  });
  // Submitted before the inner loop begins, and while it runs.
  dispatch.mainQueue().async([&] {
    order.push_back(2);
    dispatch.mainQueue().async([&] {
      order.push_back(3);
      inner.quit();
    });
  });
  dispatch.runMainLoop();
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

TEST(ToolkitDispatch, EndsTheLoopsInsideWhenItIsStopped) {
  LinuxDispatch dispatch;
  bool hasInnerEnded = false;
  dispatch.mainQueue().async([&] {
    QEventLoop inner;
    inner.exec();
    hasInnerEnded = true;
  });
  std::thread stopper;
  dispatch.mainQueue().async(
      [&] { stopper = std::thread([&dispatch] { dispatch.stopMainLoop(); }); });
  dispatch.runMainLoop();
  EXPECT_TRUE(hasInnerEnded);
  stopper.join();
}

TEST(ToolkitDispatch, EndsAtOnceWhenItWasStoppedBefore) {
  LinuxDispatch dispatch;
  dispatch.stopMainLoop();
  dispatch.runMainLoop();
  // And only once.
  bool hasRun = false;
  dispatch.mainQueue().async([&] {
    hasRun = true;
    dispatch.stopMainLoop();
  });
  dispatch.runMainLoop();
  EXPECT_TRUE(hasRun);
}

}  // namespace
}  // namespace talmo::test
