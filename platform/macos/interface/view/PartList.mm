#include "platform/macos/interface/view/PartList.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/macos/interface/view/KeptParts.h"
#include "platform/macos/interface/view/LinePlan.h"
#include "platform/macos/interface/view/StackLook.h"

namespace talmo {
namespace {

// Of what takes the room that is left: anything holds its size more than that.
constexpr NSLayoutPriority givingWay = 1;

/// Has the view take the room that is left in a direction.
void giveWay(NSView* view, NSLayoutConstraintOrientation direction) {
  if ([view isKindOfClass:[NSStackView class]]) {
    [static_cast<NSStackView*>(view) setHuggingPriority:givingWay forOrientation:direction];
  } else {
    [view setContentHuggingPriority:givingWay forOrientation:direction];
  }
}

}  // namespace

void PartList::set(std::span<const View> views) {
  const std::vector<std::optional<std::size_t>> kept = keptParts(keys_, views);
  // Holds what goes until all is in its place.
  const std::vector<NSView<TLMPart>*> before = std::exchange(parts_, {});
  keys_.clear();
  for (std::size_t index = 0; index < views.size(); ++index) {
    keys_.push_back(PartKey::of(views[index]));
    parts_.push_back(kept[index] ? before[*kept[index]] : makePart_(views[index], container_));
  }
  for (NSView<TLMPart>* part : before) {
    if (std::ranges::find(parts_, part) == parts_.end()) [part removeFromSuperview];
  }
  if (parts_ != before) arrange();
  for (std::size_t index = 0; index < views.size(); ++index) [parts_[index] show:views[index]];
}

void PartList::arrange() {
  for (NSLayoutConstraint* width : std::exchange(widths_, {})) width.active = NO;
  for (NSView* room : std::exchange(rooms_, {})) [room removeFromSuperview];
  // They stay its subviews, and keep what they have of tracking and motion.
  for (NSView* part : [stack_.arrangedSubviews copy]) [stack_ removeArrangedSubview:part];
  if (stack_.orientation == NSUserInterfaceLayoutOrientationVertical) {
    arrangeColumn();
  } else {
    arrangeLine();
  }
}

void PartList::arrangeColumn() {
  for (std::size_t index = 0; index < parts_.size(); ++index) {
    NSView* const part = parts_[index];
    // The room that is left is above the buttons.
    if (keys_[index].role == ViewRole::tray && index > 0) addRoom();
    add(part);
    if (hasOwnWidth(keys_[index])) {
      narrow(part);
    } else {
      fill(part);
    }
    if (keys_[index].role == ViewRole::step) {
      giveWay(part, NSLayoutConstraintOrientationVertical);
    }
    if (index + 1 < parts_.size()) {
      [stack_ setCustomSpacing:gapBetween(keys_[index], keys_[index + 1], role_, container_)
                     afterView:part];
    }
  }
}

void PartList::arrangeLine() {
  const LinePlan plan = LinePlan::of(keys_, role_);
  for (std::size_t index = 0; index < parts_.size(); ++index) {
    if (plan.roomBefore == index) addRoom();
    add(parts_[index]);
    if (plan.wide == index) {
      giveWay(parts_[index], NSLayoutConstraintOrientationHorizontal);
    } else {
      narrow(parts_[index]);
    }
  }
  if (plan.roomBefore != parts_.size()) return;
  // What is in the line is all of it when there is no room.
  if (!parts_.empty()) [stack_ setCustomSpacing:0 afterView:parts_.back()];
  addRoom();
}

void PartList::add(NSView* view) {
  view.translatesAutoresizingMaskIntoConstraints = NO;
  [stack_ addArrangedSubview:view];
  // One that was elsewhere in the stack has the gap of there.
  [stack_ setCustomSpacing:NSStackViewSpacingUseDefault afterView:view];
}

void PartList::addRoom() {
  const bool isColumn = stack_.orientation == NSUserInterfaceLayoutOrientationVertical;
  NSView* const room = [[NSView alloc] initWithFrame:NSZeroRect];
  add(room);
  // The gap before it is enough.
  [stack_ setCustomSpacing:0 afterView:room];
  [(isColumn ? room.widthAnchor : room.heightAnchor) constraintEqualToConstant:0].active = YES;
  rooms_.push_back(room);
}

void PartList::fill(NSView* view) {
  // What the column has too much is nothing that its parts hold on to.
  giveWay(view, NSLayoutConstraintOrientationHorizontal);
  const NSEdgeInsets insets = stack_.edgeInsets;
  NSLayoutConstraint* const width =
      [view.widthAnchor constraintEqualToAnchor:stack_.widthAnchor
                                       constant:-(insets.left + insets.right)];
  // A list has no width before it is first laid out.
  use(width, NSLayoutPriorityRequired - 1);
}

void PartList::narrow(NSView* view) {
  // A stack or button has no size of its own that it could hold. Less than what any text holds.
  use([view.widthAnchor constraintEqualToConstant:0], NSLayoutPriorityDefaultLow);
}

void PartList::use(NSLayoutConstraint* width, NSLayoutPriority priority) {
  width.priority = priority;
  width.active = YES;
  widths_.push_back(width);
}

}  // namespace talmo
