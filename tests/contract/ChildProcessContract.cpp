#include "tests/contract/ChildProcessContract.h"

#include <csignal>

#include <gmock/gmock.h>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ChildTermination exited(int status) {
  return {ChildTermination::Reason::exit, status};
}

constexpr ChildTermination endedBy(int signal) {
  return {ChildTermination::Reason::uncaughtSignal, signal};
}

/// Text in which every place is different from its neighbours, longer than any pipe holds.
std::string longText() {
  constexpr std::size_t length = 3'000'000;
  std::string text;
  for (int line = 0; text.size() < length; ++line) text += std::to_string(line) + "\n";
  return text;
}

}  // namespace

std::function<void(const ChildTermination&)> ChildProcessContract::ending(
    const std::shared_ptr<ChildRecord>& record) {
  return [record](const ChildTermination& termination) { record->addTermination(termination); };
}

std::function<void(OutputPipe&)> ChildProcessContract::reading(
    const std::shared_ptr<ChildRecord>& record) {
  return [record](OutputPipe& pipe) { record->addOutput(pipe.availableData()); };
}

bool ChildProcessContract::runAside(const std::function<void()>& work) {
  const auto isDone = std::make_shared<std::atomic<bool>>(false);
  world().dispatch().globalQueue(QualityOfService::userInitiated).async([=] {
    work();
    *isDone = true;
  });
  return runUntil([=] { return isDone->load(); });
}

void ChildProcessContract::runChild(const Script& script) {
  const auto child = make(script);
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return !child->isRunning(); }));
}

TEST_P(ChildProcessContract, AllOutputCanBeReadAndTheExitStatusIsTold) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().write("one\n").write("two").exit(3));
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  std::string output;
  ASSERT_TRUE(runAside([&] {
    output = child->standardOutput()->readToEnd();
    child->waitUntilExit();
    EXPECT_FALSE(child->isRunning());
  }));
  EXPECT_EQ(output, "one\ntwo");
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(exited(3)));
}

TEST_P(ChildProcessContract, ReadabilityHandlerGetsEverythingInOrderAndTheEndOnce) {
  const auto record = std::make_shared<ChildRecord>();
  const std::string text = longText();
  const auto child = make(Script().write(text).write("the end"));
  child->standardOutput()->setReadabilityHandler(reading(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return record->ends() > 0; }));
  runChild(Script().write("later"));
  EXPECT_TRUE(record->output() == text + "the end");
  EXPECT_EQ(record->ends(), 1);
  EXPECT_EQ(record->afterEnd(), 0U);
}

TEST_P(ChildProcessContract, OutputArrivesWhileTheChildRuns) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().write("first").wait(10ms).write("second").liveOn());
  child->standardOutput()->setReadabilityHandler(reading(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return record->output() == "firstsecond"; }));
  EXPECT_TRUE(child->isRunning());
  EXPECT_EQ(record->ends(), 0);
  child->terminate();
  ASSERT_TRUE(runUntil([&] { return record->ends() == 1; }));
}

TEST_P(ChildProcessContract, HandlersRunOnOtherThreadsThanTheMainThread) {
  std::atomic<int> calls = 0;
  std::atomic<int> onMain = 0;
  const auto note = [&] {
    if (world().dispatch().isMainThread()) ++onMain;
    ++calls;
  };
  const auto child = make(Script().write("x"));
  child->standardOutput()->setReadabilityHandler([&](OutputPipe& pipe) {
    pipe.availableData();
    note();
  });
  child->setTerminationHandler([&](const ChildTermination&) { note(); });
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return calls == 3; }));
  EXPECT_EQ(onMain, 0);
}

TEST_P(ChildProcessContract, AChildThatIsAskedToEndEndsByThatSignal) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().liveOn());
  child->setTerminationHandler(ending(record));
  EXPECT_FALSE(child->isRunning());
  ASSERT_EQ(child->launch(), std::nullopt);
  EXPECT_TRUE(child->isRunning());
  child->terminate();
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_FALSE(child->isRunning());
  EXPECT_THAT(record->terminations(), ElementsAre(endedBy(SIGTERM)));
  child->terminate();
}

// As the threads of some systems' queues do.
TEST_P(ChildProcessContract, AChildOfAThreadThatBlocksSignalsEndsWhenItIsAskedTo) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().liveOn());
  child->setTerminationHandler(ending(record));
  ASSERT_TRUE(runAside([&] {
    sigset_t blocked;
    sigset_t usual;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &usual);
    EXPECT_EQ(child->launch(), std::nullopt);
    pthread_sigmask(SIG_SETMASK, &usual, nullptr);
  }));
  child->terminate();
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(endedBy(SIGTERM)));
}

TEST_P(ChildProcessContract, AnotherSignalIsToldToo) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().signal(SIGKILL));
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(endedBy(SIGKILL)));
}

TEST_P(ChildProcessContract, AChildMayIgnoreThatItIsAskedToEnd) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().ignoreTerminate().write("ready").wait(100ms).exit(7));
  child->setTerminationHandler(ending(record));
  child->standardOutput()->setReadabilityHandler(reading(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return record->output() == "ready"; }));
  child->terminate();
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(exited(7)));
}

TEST_P(ChildProcessContract, AFullPipeHoldsTheChildUpUntilItIsRead) {
  const std::string text = longText();
  const auto child = make(Script().write(text).exit(0));
  ASSERT_EQ(child->launch(), std::nullopt);
  runChild(Script().write("a little").wait(100ms));
  EXPECT_TRUE(child->isRunning());
  std::string output;
  ASSERT_TRUE(runAside([&] {
    output = child->standardOutput()->readToEnd();
    child->waitUntilExit();
  }));
  EXPECT_TRUE(output == text);
}

TEST_P(ChildProcessContract, OutputIsStillThereWhenTheChildHasEnded) {
  const auto child = make(Script().write("kept").exit(0));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return !child->isRunning(); }));
  std::string output;
  std::string nothing;
  ASSERT_TRUE(runAside([&] {
    output = child->standardOutput()->availableData();
    nothing = child->standardOutput()->availableData();
  }));
  EXPECT_EQ(output, "kept");
  EXPECT_EQ(nothing, "");
}

TEST_P(ChildProcessContract, AChildMayCloseItsOutputAndLiveOn) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().write("bye").closeOutput().liveOn());
  child->standardOutput()->setReadabilityHandler(reading(record));
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return record->ends() == 1; }));
  EXPECT_EQ(record->output(), "bye");
  EXPECT_TRUE(child->isRunning());
  EXPECT_THAT(record->terminations(), IsEmpty());
  child->terminate();
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_EQ(record->ends(), 1);
}

TEST_P(ChildProcessContract, WhatGoesToTheNullDeviceHoldsNobodyUp) {
  ChildProcessParameters parameters =
      world().program(Script().write(longText()).writeError(longText()).exit(5));
  parameters.standardOutput = ChildOutput::nullDevice;
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(parameters);
  EXPECT_EQ(child->standardOutput(), nullptr);
  EXPECT_EQ(child->standardError(), nullptr);
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(exited(5)));
}

TEST_P(ChildProcessContract, StandardErrorHasAPipeOfItsOwn) {
  ChildProcessParameters parameters =
      world().program(Script().write("said").writeError("complained"));
  parameters.standardError = ChildOutput::pipe;
  const auto output = std::make_shared<ChildRecord>();
  const auto error = std::make_shared<ChildRecord>();
  const auto child = make(parameters);
  child->standardOutput()->setReadabilityHandler(reading(output));
  child->standardError()->setReadabilityHandler(reading(error));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return output->ends() == 1 && error->ends() == 1; }));
  EXPECT_EQ(output->output(), "said");
  EXPECT_EQ(error->output(), "complained");
}

TEST_P(ChildProcessContract, AProgramThatIsMissingIsToldInWordsAndNothingHangs) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(world().missingProgram());
  child->setTerminationHandler(ending(record));
  EXPECT_NE(child->launch().value_or(""), "");
  EXPECT_FALSE(child->isRunning());
  child->terminate();
  std::string output = "unread";
  ASSERT_TRUE(runAside([&] {
    child->waitUntilExit();
    output = child->standardOutput()->readToEnd();
  }));
  EXPECT_EQ(output, "");
  runChild(Script());
  EXPECT_THAT(record->terminations(), IsEmpty());
}

TEST_P(ChildProcessContract, AChildIsStartedOnce) {
  const auto child = make(Script().exit(0));
  ASSERT_EQ(child->launch(), std::nullopt);
  EXPECT_NE(child->launch(), std::nullopt);
}

TEST_P(ChildProcessContract, WaitingForAChildThatWasNeverStartedReturns) {
  const auto child = make(Script().liveOn());
  EXPECT_FALSE(child->isRunning());
  child->terminate();
  EXPECT_TRUE(runAside([&] { child->waitUntilExit(); }));
}

TEST_P(ChildProcessContract, ATerminationHandlerThatComesLateIsCalledAtOnce) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().exit(4));
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runAside([&] { child->waitUntilExit(); }));
  child->setTerminationHandler(ending(record));
  ASSERT_TRUE(runUntil([&] { return !record->terminations().empty(); }));
  EXPECT_THAT(record->terminations(), ElementsAre(exited(4)));
}

TEST_P(ChildProcessContract, HandlersThatWereTakenAwayAreNotCalled) {
  const auto record = std::make_shared<ChildRecord>();
  const auto child = make(Script().wait(20ms).write("unheard").exit(0));
  child->standardOutput()->setReadabilityHandler(reading(record));
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  child->standardOutput()->setReadabilityHandler(nullptr);
  child->setTerminationHandler(nullptr);
  std::string output;
  ASSERT_TRUE(runAside([&] {
    output = child->standardOutput()->readToEnd();
    child->waitUntilExit();
  }));
  runChild(Script().write("later"));
  EXPECT_EQ(output, "unheard");
  EXPECT_EQ(record->output(), "");
  EXPECT_EQ(record->ends(), 0);
  EXPECT_THAT(record->terminations(), IsEmpty());
}

TEST_P(ChildProcessContract, AReplacedReadabilityHandlerLosesNothing) {
  const auto record = std::make_shared<ChildRecord>();
  const std::string text = longText();
  const auto child = make(Script().write(text));
  const std::shared_ptr<OutputPipe> pipe = child->standardOutput();
  // Each handler reads one piece and hands on to the next.
  std::function<void(OutputPipe&)> readOnce = [&](OutputPipe& source) {
    record->addOutput(source.availableData());
    if (record->ends() == 0) source.setReadabilityHandler(readOnce);
  };
  pipe->setReadabilityHandler(readOnce);
  ASSERT_EQ(child->launch(), std::nullopt);
  ASSERT_TRUE(runUntil([&] { return record->ends() > 0; }));
  runChild(Script());
  EXPECT_TRUE(record->output() == text);
  EXPECT_EQ(record->ends(), 1);
}

TEST_P(ChildProcessContract, LettingGoEndsTheHandlersAndNotTheChild) {
  const auto record = std::make_shared<ChildRecord>();
  auto child = make(Script().wait(20ms).write("unheard").exit(0));
  child->standardOutput()->setReadabilityHandler(reading(record));
  child->setTerminationHandler(ending(record));
  ASSERT_EQ(child->launch(), std::nullopt);
  child = nullptr;
  runChild(Script().wait(100ms).write("later"));
  EXPECT_EQ(record->output(), "");
  EXPECT_EQ(record->ends(), 0);
  EXPECT_THAT(record->terminations(), IsEmpty());
}

TEST_P(ChildProcessContract, APipeMayOutliveItsChildObject) {
  auto child = make(Script().wait(20ms).write("heard").exit(0));
  const std::shared_ptr<OutputPipe> pipe = child->standardOutput();
  ASSERT_EQ(child->launch(), std::nullopt);
  child = nullptr;
  std::string output;
  ASSERT_TRUE(runAside([&] { output = pipe->readToEnd(); }));
  EXPECT_EQ(output, "heard");
}

TEST_P(ChildProcessContract, AChildMayBeLetGoOfInItsTerminationHandler) {
  std::atomic<bool> isLaunched = false;
  std::atomic<bool> isDone = false;
  // It cannot end before its output is read, which is when nobody else uses its object any more.
  auto child = make(Script().write(longText()).exit(0));
  const std::shared_ptr<OutputPipe> pipe = child->standardOutput();
  child->setTerminationHandler([&](const ChildTermination&) {
    EXPECT_TRUE(isLaunched);
    child = nullptr;
    isDone = true;
  });
  ASSERT_EQ(child->launch(), std::nullopt);
  isLaunched = true;
  ASSERT_TRUE(runAside([&] { pipe->readToEnd(); }));
  ASSERT_TRUE(runUntil([&] { return isDone.load(); }));
  runChild(Script());
}

TEST_P(ChildProcessContract, AChildMayBeLetGoOfInItsReadabilityHandler) {
  std::atomic<bool> isLaunched = false;
  std::atomic<bool> isDone = false;
  auto child = make(Script().write("x").exit(0));
  child->standardOutput()->setReadabilityHandler([&](OutputPipe&) {
    // Called again, as it has read nothing.
    if (!isLaunched) return;
    child = nullptr;
    isDone = true;
  });
  ASSERT_EQ(child->launch(), std::nullopt);
  isLaunched = true;
  ASSERT_TRUE(runUntil([&] { return isDone.load(); }));
  runChild(Script());
}

TEST_P(ChildProcessContract, ChildrenDoNotDisturbEachOther) {
  const auto quiet = std::make_shared<ChildRecord>();
  const auto other = make(Script().liveOn());
  other->setTerminationHandler(ending(quiet));
  ASSERT_EQ(other->launch(), std::nullopt);
  std::vector<std::shared_ptr<ChildProcess>> children;
  std::vector<std::shared_ptr<ChildRecord>> records;
  for (std::size_t index = 0; index < 8; ++index) {
    records.push_back(std::make_shared<ChildRecord>());
    children.push_back(make(Script().write(std::to_string(index)).exit(static_cast<int>(index))));
    children.back()->standardOutput()->setReadabilityHandler(reading(records.back()));
    children.back()->setTerminationHandler(ending(records.back()));
    ASSERT_EQ(children.back()->launch(), std::nullopt);
  }
  for (std::size_t index = 0; index < 8; ++index) {
    ChildRecord& record = *records.at(index);
    ASSERT_TRUE(runUntil([&] { return record.ends() == 1 && !record.terminations().empty(); }));
    EXPECT_EQ(record.output(), std::to_string(index));
    EXPECT_THAT(record.terminations(), ElementsAre(exited(static_cast<int>(index))));
  }
  EXPECT_TRUE(other->isRunning());
  EXPECT_THAT(quiet->terminations(), IsEmpty());
  other->terminate();
  ASSERT_TRUE(runUntil([&] { return !quiet->terminations().empty(); }));
}

}  // namespace talmo::test
