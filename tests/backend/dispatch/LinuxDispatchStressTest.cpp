#include <atomic>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/dispatch/LinuxDispatch.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

TEST(LinuxDispatchStress, EverythingAtOnceLosesNothingAndKeepsItsOrder) {
  constexpr int submitters = 4;
  constexpr int queueCount = 6;
  constexpr int itemsPerSubmitter = 600;
  LinuxDispatch dispatch;

  struct Lane {
    std::shared_ptr<Queue> queue;
    // Touched by the items of the queue only, without a lock: that is what a serial queue is for.
    std::vector<int> lastOfSubmitter = std::vector<int>(submitters, -1);
    int items = 0;
    int outOfOrder = 0;
  };
  std::vector<Lane> lanes(queueCount);
  for (Lane& lane : lanes) {
    lane.queue = dispatch.makeSerialQueue("nl.brelm.talmo.lane", QualityOfService::unspecified);
  }

  std::atomic<int> laneItems = 0;
  std::atomic<int> mainItems = 0;
  std::atomic<int> globalItems = 0;
  std::atomic<int> delayedItems = 0;
  std::atomic<int> selfOwned = 0;
  std::atomic<int> iterations = 0;
  int firings = 0;
  const auto timer = dispatch.scheduledTimer(1ms, 1ms, [&firings] { ++firings; });
  std::vector<std::shared_ptr<Timer>> shortLived;

  for (int submitter = 0; submitter < submitters; ++submitter) {
    dispatch.startThread("submitter", QualityOfService::unspecified, [&, submitter] {
      for (int item = 0; item < itemsPerSubmitter; ++item) {
        for (Lane& lane : lanes) {
          lane.queue->async([&lane, &laneItems, submitter, item] {
            int& last = lane.lastOfSubmitter[static_cast<std::size_t>(submitter)];
            if (item != last + 1) ++lane.outOfOrder;
            last = item;
            ++lane.items;
            ++laneItems;
          });
        }
        dispatch.mainQueue().async([&mainItems] { ++mainItems; });
        dispatch.globalQueue(QualityOfService::utility).async([&globalItems] { ++globalItems; });
        lanes[0].queue->asyncAfter(std::chrono::microseconds(item),
                                   [&delayedItems] { ++delayedItems; });
        if (item % 50 == 0) {
          auto own = dispatch.makeSerialQueue("own", QualityOfService::utility);
          Queue& borrowed = *own;
          borrowed.async([&selfOwned, own = std::move(own)] { ++selfOwned; });
          dispatch.concurrentPerform(8, [&iterations](std::size_t) { ++iterations; });
          dispatch.mainQueue().async([&] {
            for (const auto& each : shortLived) each->invalidate();
            shortLived.assign(1, dispatch.scheduledTimer(100us, 0s, [&firings] { ++firings; }));
          });
        }
      }
    });
  }

  constexpr int perKind = submitters * itemsPerSubmitter;
  constexpr int rare = submitters * itemsPerSubmitter / 50;
  EXPECT_TRUE(dispatch.serveMainQueueUntil(
      [&] {
        return laneItems == perKind * queueCount && mainItems == perKind &&
               globalItems == perKind && delayedItems == perKind && selfOwned == rare &&
               iterations == rare * 8 && firings > 10;
      },
      dispatch.uptime() + 50s));
  EXPECT_EQ(laneItems, perKind * queueCount);
  EXPECT_EQ(mainItems, perKind);
  EXPECT_EQ(globalItems, perKind);
  EXPECT_EQ(delayedItems, perKind);
  EXPECT_EQ(selfOwned, rare);
  EXPECT_EQ(iterations, rare * 8);

  timer->invalidate();
  for (const auto& each : shortLived) each->invalidate();
  EXPECT_TRUE(dispatch.shutdown());
  for (const Lane& lane : lanes) {
    EXPECT_EQ(lane.items, perKind);
    EXPECT_EQ(lane.outOfOrder, 0);
  }
}

TEST(LinuxDispatchStress, ShutdownInTheMiddleOfWorkThatMakesMoreWork) {
  for (int round = 0; round < 30; ++round) {
    const auto token = std::make_shared<std::atomic<int>>(0);
    {
      LinuxDispatch dispatch;
      std::vector<std::shared_ptr<Queue>> queues;
      for (int number = 0; number < 4; ++number) {
        queues.push_back(dispatch.makeSerialQueue("queue", QualityOfService::unspecified));
      }
      // Each item submits itself to another queue, over and over.
      struct Hop {
        LinuxDispatch& dispatch;
        const std::vector<std::shared_ptr<Queue>>& queues;
        std::shared_ptr<std::atomic<int>> token;

        void operator()() const {
          const int hop = ++*token;
          switch (hop % 4) {
            case 0:
              dispatch.globalQueue(QualityOfService::utility).async(*this);
              break;
            case 1:
              dispatch.mainQueue().async(*this);
              break;
            case 2:
              queues[static_cast<std::size_t>(hop) % queues.size()]->asyncAfter(10us, *this);
              break;
            default:
              queues[static_cast<std::size_t>(hop) % queues.size()]->async(*this);
          }
        }
      };
      for (int walker = 0; walker < 8; ++walker) queues[0]->async(Hop{dispatch, queues, token});
      EXPECT_TRUE(
          dispatch.serveMainQueueUntil([&token] { return *token > 200; }, dispatch.uptime() + 20s));
      EXPECT_TRUE(dispatch.shutdown());
      EXPECT_EQ(token.use_count(), 1);
    }
  }
}

}  // namespace
}  // namespace talmo::test
