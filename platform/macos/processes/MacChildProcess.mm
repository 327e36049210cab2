#include "platform/macos/processes/MacChildProcess.h"

#include <utility>

#include "platform/macos/Text.h"

namespace talmo {
namespace {

NSPipe* makePipe(ChildOutput output) {
  return output == ChildOutput::pipe ? [NSPipe pipe] : nil;
}

std::shared_ptr<MacOutputPipe> readerOf(NSPipe* pipe, ChildOutput output) {
  if (output == ChildOutput::nullDevice) return nullptr;
  return std::make_shared<MacOutputPipe>(pipe.fileHandleForReading);
}

/// The null device too where no pipe could be made: with nothing a task hands on our own output.
id channelOf(NSPipe* pipe) {
  if (pipe != nil) return pipe;
  return NSFileHandle.fileHandleWithNullDevice;
}

NSTask* makeTask(const ChildProcessParameters& parameters, NSPipe* outputPipe, NSPipe* errorPipe) {
  NSTask* const task = [[NSTask alloc] init];
  task.executableURL = [NSURL fileURLWithPath:toNSString(parameters.executable) isDirectory:NO];
  task.arguments = toNSArray(parameters.arguments);
  task.standardInput = NSFileHandle.fileHandleWithNullDevice;
  task.standardOutput = channelOf(outputPipe);
  task.standardError = channelOf(errorPipe);
  return task;
}

}  // namespace

MacChildProcess::MacChildProcess(const ChildProcessParameters& parameters)
    : outputPipe_(makePipe(parameters.standardOutput)),
      errorPipe_(makePipe(parameters.standardError)),
      standardOutput_(readerOf(outputPipe_, parameters.standardOutput)),
      standardError_(readerOf(errorPipe_, parameters.standardError)),
      child_(std::make_shared<MacChild>(makeTask(parameters, outputPipe_, errorPipe_))) {}

MacChildProcess::~MacChildProcess() {
  child_->setTerminationHandler(nullptr);
}

std::optional<std::string> MacChildProcess::launch() {
  @autoreleasepool {
    std::optional<std::string> error = child_->launch();
    if (error && !child_->isRunning()) {
      // Only a launch that succeeds closes them: without it the pipes would never be at their end.
      [outputPipe_.fileHandleForWriting closeAndReturnError:nil];
      [errorPipe_.fileHandleForWriting closeAndReturnError:nil];
    }
    return error;
  }
}

void MacChildProcess::terminate() {
  @autoreleasepool {
    child_->terminate();
  }
}

void MacChildProcess::waitUntilExit() {
  @autoreleasepool {
    child_->waitUntilExit();
  }
}

void MacChildProcess::setTerminationHandler(std::function<void(const ChildTermination&)> handler) {
  child_->setTerminationHandler(std::move(handler));
}

}  // namespace talmo
