#include <csignal>
#include <map>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/SimulatedChildProcesses.h"
#include "tests/component/SimulatedWorld.h"
#include "tests/contract/ChildProcessContract.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Script = SimulatedChildScript;

class SimulatedChildProcessWorld : public ChildProcessWorld {
 public:
  explicit SimulatedChildProcessWorld(std::uint64_t seed) : world_(seed) {
    childProcesses().setPrograms([this](const ChildProcessParameters& parameters) {
      const auto found = scripts_.find(parameters.executable);
      if (found == scripts_.end()) return Script::launchFailure("No such file or directory");
      return found->second;
    });
  }

  Dispatch& dispatch() override { return world_.time(); }
  SimulatedChildProcesses& childProcesses() override { return world_.machine().childProcesses(); }
  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return world_.time().runUntil(condition, limit);
  }
  ChildProcessParameters program(const Script& script) override {
    const std::string name = "/programs/" + std::to_string(scripts_.size());
    scripts_[name] = script;
    return {.executable = name};
  }
  ChildProcessParameters missingProgram() override { return {.executable = "/programs/missing"}; }

 private:
  // Outlives what launches children.
  std::map<std::string, Script> scripts_;
  SimulatedWorld world_;
};

template <std::uint64_t seed>
std::unique_ptr<ChildProcessWorld> make() {
  return std::make_unique<SimulatedChildProcessWorld>(seed);
}

INSTANTIATE_TEST_SUITE_P(Simulated, ChildProcessContract,
                         testing::Values(&make<0>, &make<1>, &make<2>, &make<3>));

class SimulatedChildProcessesTest : public testing::Test {
 protected:
  SimulatedChildProcesses& children() { return world.machine().childProcesses(); }

  SimulatedWorld world;
  const ChildProcessParameters parameters{.executable = "/bin/program",
                                          .arguments = {"one", "two"}};
};

TEST_F(SimulatedChildProcessesTest, EveryLaunchIsRecordedWithHowItStands) {
  children().setPrograms([](const ChildProcessParameters& asked) {
    if (asked.arguments.empty()) return Script::launchFailure("Permission denied");
    return Script().ignoreTerminate().liveOn();
  });
  const auto child = children().make(parameters);
  const auto failing = children().make({.executable = "/bin/other"});
  EXPECT_THAT(children().launches(), IsEmpty());
  EXPECT_EQ(child->launch(), std::nullopt);
  EXPECT_EQ(failing->launch(), "Permission denied");
  child->terminate();
  child->terminate();
  world.time().runUntilIdle();

  ASSERT_THAT(children().launches(), SizeIs(2));
  EXPECT_EQ(children().launches()[0].parameters, parameters);
  EXPECT_TRUE(children().launches()[0].isRunning);
  EXPECT_EQ(children().launches()[0].terminates, 2);
  EXPECT_FALSE(children().launches()[1].isRunning);
  EXPECT_THAT(children().running(), ElementsAre(parameters));

  children().killAll();
  EXPECT_THAT(children().running(), IsEmpty());
  EXPECT_EQ(children().launches()[0].termination,
            (ChildTermination{ChildTermination::Reason::uncaughtSignal, SIGKILL}));
}

TEST_F(SimulatedChildProcessesTest, StepsTakeVirtualTime) {
  children().setPrograms(
      [](const ChildProcessParameters&) { return Script().wait(2s).write("x").wait(3s).exit(1); });
  const auto child = children().make(parameters);
  ASSERT_EQ(child->launch(), std::nullopt);
  world.time().run(4999ms);
  EXPECT_TRUE(child->isRunning());
  world.time().run(1ms);
  EXPECT_FALSE(child->isRunning());
}

TEST_F(SimulatedChildProcessesTest, APipeHoldsAsMuchAsTheKernelsDoes) {
  children().setPrograms([](const ChildProcessParameters& asked) {
    return Script().write(std::string(std::stoul(asked.arguments.front()), 'x'));
  });
  const auto fits = children().make({.executable = "/p", .arguments = {"65536"}});
  const auto tooLong = children().make({.executable = "/p", .arguments = {"65537"}});
  ASSERT_EQ(fits->launch(), std::nullopt);
  ASSERT_EQ(tooLong->launch(), std::nullopt);
  world.time().run(1h);
  EXPECT_FALSE(fits->isRunning());
  EXPECT_TRUE(tooLong->isRunning());
}

TEST_F(SimulatedChildProcessesTest, WritingWithoutAReaderEndsTheChild) {
  children().setPrograms(
      [](const ChildProcessParameters&) { return Script().wait(1s).write("x").liveOn(); });
  auto child = children().make(parameters);
  ASSERT_EQ(child->launch(), std::nullopt);
  child = nullptr;
  world.time().runUntilIdle();
  EXPECT_THAT(children().running(), SizeIs(1));
  world.time().run(1s);
  EXPECT_EQ(children().launches()[0].termination,
            (ChildTermination{ChildTermination::Reason::uncaughtSignal, SIGPIPE}));
}

TEST_F(SimulatedChildProcessesTest, TearingDownEndsWhatWaitsForAChild) {
  bool hasEnded = false;
  {
    SimulatedWorld other;
    other.machine().childProcesses().setPrograms(
        [](const ChildProcessParameters&) { return Script().liveOn(); });
    const auto child = other.machine().childProcesses().make(parameters);
    ASSERT_EQ(child->launch(), std::nullopt);
    other.machine().dispatch().globalQueue(QualityOfService::utility).async([&, child] {
      EXPECT_EQ(child->standardOutput()->readToEnd(), "");
      hasEnded = true;
    });
    other.time().runUntilIdle();
    EXPECT_FALSE(hasEnded);
  }
  EXPECT_TRUE(hasEnded);
}

}  // namespace
}  // namespace talmo::test
