#pragma once

#import <Foundation/Foundation.h>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ChildProcess.h"
#include "platform/ChildProcessParameters.h"
#include "platform/macos/processes/MacChild.h"
#include "platform/macos/processes/MacOutputPipe.h"

namespace talmo {

/// One child process by `NSTask`. Its object can go while the task runs on (see `MacChild`).
class MacChildProcess : public ChildProcess {
 public:
  explicit MacChildProcess(const ChildProcessParameters& parameters);
  ~MacChildProcess() override;
  MacChildProcess(const MacChildProcess&) = delete;
  MacChildProcess& operator=(const MacChildProcess&) = delete;

  std::optional<std::string> launch() override;
  bool isRunning() const override { return child_->isRunning(); }
  void terminate() override;
  void waitUntilExit() override;
  void setTerminationHandler(std::function<void(const ChildTermination&)> handler) override;
  std::shared_ptr<OutputPipe> standardOutput() override { return standardOutput_; }
  std::shared_ptr<OutputPipe> standardError() override { return standardError_; }

 private:
  // Nil for the null device.
  NSPipe* const outputPipe_;
  NSPipe* const errorPipe_;
  const std::shared_ptr<MacOutputPipe> standardOutput_;
  const std::shared_ptr<MacOutputPipe> standardError_;
  const std::shared_ptr<MacChild> child_;
};

}  // namespace talmo
