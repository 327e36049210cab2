#pragma once

#import <AppKit/AppKit.h>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "platform/EventMonitors.h"

namespace talmo {

/// The event monitors of `NSEvent`. Local ones see nothing of what a menu's or a control's own
/// tracking takes, and global ones see key presses only while this process is trusted.
class MacEventMonitors : public EventMonitors {
 public:
  MacEventMonitors() = default;
  ~MacEventMonitors() override;
  MacEventMonitors(const MacEventMonitors&) = delete;
  MacEventMonitors& operator=(const MacEventMonitors&) = delete;

  Token addGlobalMonitor(std::uint64_t mask,
                         std::function<void(const InterfaceEvent&)> handler) override;
  Token addLocalMonitor(std::uint64_t mask,
                        std::function<bool(const InterfaceEvent&)> handler) override;
  void removeMonitor(Token token) override;

 private:
  struct Monitor {
    /// The system's; nil for one that it has refused.
    id monitor = nil;
    /// Has the monitor call no more, also in the event that is being handled.
    std::function<void()> silence;
  };

  std::map<Token, Monitor> monitors_;
  Token lastToken_ = 0;
};

}  // namespace talmo
