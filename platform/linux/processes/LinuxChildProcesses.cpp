#include "platform/linux/processes/LinuxChildProcesses.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/linux/processes/ChildLauncher.h"
#include "platform/linux/processes/LinuxChild.h"
#include "platform/linux/processes/LinuxOutputPipe.h"
#include "platform/linux/processes/OwnExecutables.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {
namespace {

// What any user may ask for (/proc/sys/fs/pipe-max-size): fewer switches for long outputs.
constexpr int pipeSize = 1024 * 1024;

/// The same file above the three standard descriptors, which the child's own replace.
FileDescriptor aboveStandard(int descriptor) {
  FileDescriptor owner(descriptor);
  if (descriptor > STDERR_FILENO) return owner;
  return FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

class LinuxChildProcess : public ChildProcess {
 public:
  LinuxChildProcess(const std::shared_ptr<ChildWatcher>& watcher,
                    const ChildProcessParameters& parameters)
      : parameters_(parameters), child_(std::make_shared<LinuxChild>(watcher)) {
    if (parameters.standardOutput == ChildOutput::pipe) {
      standardOutput_ = makePipe(watcher, outputWriter_);
    }
    if (parameters.standardError == ChildOutput::pipe) {
      standardError_ = makePipe(watcher, errorWriter_);
    }
  }
  ~LinuxChildProcess() override { child_->setTerminationHandler(nullptr); }

  std::optional<std::string> launch() override {
    const MutexLock lock(mutex_);
    if (wasLaunched_) return "the child has been started before";
    wasLaunched_ = true;
    // Closed when the child has them: the pipes end with it.
    const FileDescriptor output = std::move(outputWriter_);
    const FileDescriptor error = std::move(errorWriter_);
    if (pipeError_ != 0) return std::generic_category().message(pipeError_);
    auto launched = launchChild(parameters_, output, error);
    if (auto* const words = std::get_if<std::string>(&launched)) return std::move(*words);
    child_->watch(std::move(std::get<FileDescriptor>(launched)));
    return std::nullopt;
  }

  bool isRunning() const override { return child_->isRunning(); }
  void terminate() override { child_->terminate(); }
  void waitUntilExit() override { child_->waitUntilExit(); }
  void setTerminationHandler(std::function<void(const ChildTermination&)> handler) override {
    child_->setTerminationHandler(std::move(handler));
  }
  std::shared_ptr<OutputPipe> standardOutput() override { return standardOutput_; }
  std::shared_ptr<OutputPipe> standardError() override { return standardError_; }

 private:
  /// A pipe that could not be made is at its end, and fails the launch.
  std::shared_ptr<OutputPipe> makePipe(const std::shared_ptr<ChildWatcher>& watcher,
                                       FileDescriptor& writer) {
    std::array<int, 2> ends{-1, -1};
    FileDescriptor reader;
    if (::pipe2(ends.data(), O_CLOEXEC) == 0) {
      reader = aboveStandard(ends[0]);
      writer = aboveStandard(ends[1]);
    }
    if (!reader || !writer) {
      pipeError_ = errno;
    } else {
      // Only this end: how the child reads and writes is its own affair.
      ::fcntl(reader.get(), F_SETFL, O_NONBLOCK);
      ::fcntl(writer.get(), F_SETPIPE_SZ, pipeSize);
    }
    return std::make_shared<LinuxOutputPipe>(watcher, std::move(reader));
  }

  const ChildProcessParameters parameters_;
  const std::shared_ptr<LinuxChild> child_;
  std::shared_ptr<OutputPipe> standardOutput_;
  std::shared_ptr<OutputPipe> standardError_;
  Mutex mutex_;
  bool wasLaunched_ TALMO_GUARDED_BY(mutex_) = false;
  FileDescriptor outputWriter_ TALMO_GUARDED_BY(mutex_);
  FileDescriptor errorWriter_ TALMO_GUARDED_BY(mutex_);
  int pipeError_ = 0;
};

}  // namespace

std::shared_ptr<ChildProcess> LinuxChildProcesses::make(const ChildProcessParameters& parameters) {
  ChildProcessParameters here = parameters;
  here.executable = executableToStart(parameters.executable, bundleFolder_);
  return std::make_shared<LinuxChildProcess>(watcher_, here);
}

}  // namespace talmo
