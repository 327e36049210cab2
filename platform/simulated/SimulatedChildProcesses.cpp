#include "platform/simulated/SimulatedChildProcesses.h"

#include <csignal>
#include <utility>

#include "support/MutexLock.h"

namespace talmo {

class SimulatedChildProcesses::Pipe : public OutputPipe {
 public:
  Pipe(std::shared_ptr<SimulatedChild> child, SimulatedChild::Output output)
      : child_(std::move(child)), output_(output) {}
  ~Pipe() override { child_->closeReadingEnd(output_); }

  void setReadabilityHandler(std::function<void(OutputPipe&)> handler) override {
    child_->setReadabilityHandler(output_, std::move(handler));
  }
  std::string availableData() override { return child_->read(output_, false); }
  std::string readToEnd() override { return child_->read(output_, true); }

 private:
  const std::shared_ptr<SimulatedChild> child_;
  const SimulatedChild::Output output_;
};

class SimulatedChildProcesses::Process : public ChildProcess {
 public:
  Process(SimulatedChildProcesses& processes, const ChildProcessParameters& parameters)
      : processes_(processes),
        child_(std::make_shared<SimulatedChild>(processes.dispatch_, parameters)) {
    if (parameters.standardOutput == ChildOutput::pipe) {
      standardOutput_ = makePipe(SimulatedChild::Output::standardOutput);
    }
    if (parameters.standardError == ChildOutput::pipe) {
      standardError_ = makePipe(SimulatedChild::Output::standardError);
    }
  }
  ~Process() override { child_->setTerminationHandler(nullptr); }

  std::optional<std::string> launch() override { return processes_.launch(child_); }
  bool isRunning() const override { return child_->isRunning(); }
  void terminate() override { child_->terminate(); }
  void waitUntilExit() override { child_->waitUntilExit(); }
  void setTerminationHandler(std::function<void(const ChildTermination&)> handler) override {
    child_->setTerminationHandler(std::move(handler));
  }
  std::shared_ptr<OutputPipe> standardOutput() override { return standardOutput_; }
  std::shared_ptr<OutputPipe> standardError() override { return standardError_; }

 private:
  std::shared_ptr<OutputPipe> makePipe(SimulatedChild::Output output) {
    auto pipe = std::make_shared<Pipe>(child_, output);
    child_->setReadingEnd(output, pipe);
    return pipe;
  }

  SimulatedChildProcesses& processes_;
  const std::shared_ptr<SimulatedChild> child_;
  std::shared_ptr<OutputPipe> standardOutput_;
  std::shared_ptr<OutputPipe> standardError_;
};

std::shared_ptr<ChildProcess> SimulatedChildProcesses::make(
    const ChildProcessParameters& parameters) {
  return std::make_shared<Process>(*this, parameters);
}

void SimulatedChildProcesses::setPrograms(Programs programs) {
  std::shared_ptr<const Programs> made;
  if (programs) made = std::make_shared<const Programs>(std::move(programs));
  const MutexLock lock(mutex_);
  programs_.swap(made);
}

std::optional<std::string> SimulatedChildProcesses::launch(
    const std::shared_ptr<SimulatedChild>& child) {
  std::shared_ptr<const Programs> programs;
  {
    const MutexLock lock(mutex_);
    programs = programs_;
    children_.push_back(child);
  }
  std::optional<std::string> failure =
      child->launch(programs ? (*programs)(child->parameters())
                             : SimulatedChildScript::launchFailure("No such file or directory"));
  const MutexLock lock(mutex_);
  // Started while the machine went down, too late to be among those that it ended.
  if (!programs_) child->end({ChildTermination::Reason::uncaughtSignal, SIGKILL});
  return failure;
}

std::vector<std::shared_ptr<SimulatedChild>> SimulatedChildProcesses::children() const {
  const MutexLock lock(mutex_);
  return children_;
}

void SimulatedChildProcesses::write(const std::string& lastArgument, const std::string& bytes) {
  for (const std::shared_ptr<SimulatedChild>& child : children()) {
    const std::vector<std::string>& arguments = child->parameters().arguments;
    if (child->isRunning() && !arguments.empty() && arguments.back() == lastArgument) {
      child->say(bytes);
    }
  }
}

std::vector<SimulatedChildProcesses::Launch> SimulatedChildProcesses::launches() const {
  std::vector<Launch> launches;
  for (const std::shared_ptr<SimulatedChild>& child : children()) {
    launches.push_back(
        {child->parameters(), child->isRunning(), child->terminates(), child->termination()});
  }
  return launches;
}

std::vector<ChildProcessParameters> SimulatedChildProcesses::running() const {
  std::vector<ChildProcessParameters> running;
  for (const std::shared_ptr<SimulatedChild>& child : children()) {
    if (child->isRunning()) running.push_back(child->parameters());
  }
  return running;
}

void SimulatedChildProcesses::killAll() {
  // No other starts: nothing would make it go on, and who waits for it would wait for ever.
  setPrograms(nullptr);
  for (const std::shared_ptr<SimulatedChild>& child : children()) {
    child->end({ChildTermination::Reason::uncaughtSignal, SIGKILL});
  }
}

}  // namespace talmo
