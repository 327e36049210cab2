#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#import <AppKit/AppKit.h>

#include "platform/macos/interface/MacStatusButton.h"
#include "platform/StatusItem.h"

@class TLMStatusItemTarget;

namespace talmo {

/// An item of the menu bar. Main thread.
class MacStatusItem : public StatusItem {
 public:
  /// Takes the item out of the bar when it is destroyed.
  explicit MacStatusItem(NSStatusItem* item);
  ~MacStatusItem() override;
  MacStatusItem(const MacStatusItem&) = delete;
  MacStatusItem& operator=(const MacStatusItem&) = delete;

  std::shared_ptr<StatusButton> button() override { return button_; }
  void setImage(const StatusImage& image) override;
  void setAlpha(double alpha) override;
  void setAction(std::uint64_t mask, std::function<void()> action) override;
  void setMenu(std::optional<Menu> menu) override;
  void performClick() override;

 private:
  NSStatusItem* const item_;
  // The button's, which does not keep it.
  TLMStatusItemTarget* const target_;
  const std::shared_ptr<MacStatusButton> button_;
};

}  // namespace talmo
