#include "platform/macos/input/MacRunLoopSource.h"

#include <utility>

namespace talmo {
namespace {

constexpr CFIndex order = 0;

}  // namespace

MacRunLoopSource::MacRunLoopSource(std::shared_ptr<MacEventTapPort> port)
    : port_(std::move(port)),
      source_(CFMachPortCreateRunLoopSource(kCFAllocatorDefault, port_->port(), order)) {}

}  // namespace talmo
