#pragma once

#import <Foundation/Foundation.h>
#include <functional>
#include <memory>
#include <string>

#include "platform/OutputPipe.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The reading end of a pipe of Foundation's; its handlers run on the file handle's own queue.
class MacOutputPipe : public OutputPipe, public std::enable_shared_from_this<MacOutputPipe> {
 public:
  /// Without a reading end the pipe is at its end.
  explicit MacOutputPipe(NSFileHandle* readingEnd) : readingEnd_(readingEnd) {}
  ~MacOutputPipe() override;

  void setReadabilityHandler(std::function<void(OutputPipe&)> handler) override;
  std::string availableData() override;
  std::string readToEnd() override;

 private:
  using Handler = std::function<void(OutputPipe&)>;

  void callHandler();

  NSFileHandle* const readingEnd_;
  Mutex mutex_;
  std::shared_ptr<const Handler> handler_ TALMO_GUARDED_BY(mutex_);
  bool isAtEnd_ TALMO_GUARDED_BY(mutex_) = false;
};

}  // namespace talmo
