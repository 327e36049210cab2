#pragma once

#include "platform/linux/dispatch/LinuxDispatch.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// Real threads and real time.
class LinuxDispatchWorld : public DispatchWorld {
 public:
  LinuxDispatch& dispatch() override { return dispatch_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return dispatch_.serveMainQueueUntil(condition, dispatch_.uptime() + limit);
  }

 private:
  LinuxDispatch dispatch_;
};

}  // namespace talmo::test
