#pragma once

#import <AppKit/AppKit.h>
#include <span>
#include <vector>

#include "platform/macos/interface/view/PartKey.h"
#include "platform/macos/interface/view/TLMPart.h"
#include "platform/View.h"

namespace talmo {

/// The parts in a stack view, which owns the list. Main thread only.
class PartList {
 public:
  /// `role` is what the stack shows. `container` is its role, or for a group the one of the stack
  /// or button around it.
  PartList(NSStackView* stack, ViewRole role, ViewRole container, MakePart makePart)
      : stack_(stack), role_(role), container_(container), makePart_(makePart) {}

  /// Keeps what the views still show, makes what is new and lets go of the rest.
  void set(std::span<const View> views);

  const std::vector<NSView<TLMPart>*>& parts() const { return parts_; }

 private:
  void arrange();
  void arrangeColumn();
  void arrangeLine();
  void add(NSView* view);
  void addRoom();
  /// As wide as the column.
  void fill(NSView* view);
  /// As wide as its content.
  void narrow(NSView* view);
  void use(NSLayoutConstraint* width, NSLayoutPriority priority);

  // Keeping it would keep both for ever.
  __unsafe_unretained NSStackView* const stack_;
  const ViewRole role_;
  const ViewRole container_;
  const MakePart makePart_;
  std::vector<PartKey> keys_;
  std::vector<NSView<TLMPart>*> parts_;
  /// Views of no size that stand where there is room left.
  std::vector<NSView*> rooms_;
  std::vector<NSLayoutConstraint*> widths_;
};

}  // namespace talmo
