#include "platform/macos/interface/view/TLMSectionPart.h"

#include <algorithm>
#include <optional>
#include <span>

#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/PartList.h"
#include "platform/macos/interface/view/SpokenText.h"
#include "platform/macos/interface/view/TLMButtonPart.h"
#include "platform/macos/interface/view/TLMFlippedStackView.h"
#include "platform/macos/Text.h"

using talmo::Metrics;
using talmo::View;
using talmo::ViewRole;

namespace {

// Less than what keeps a window its size, and less than what keeps a content in its window.
constexpr NSLayoutPriority wholeList = 450;

void makeColumn(NSStackView* stack) {
  stack.orientation = NSUserInterfaceLayoutOrientationVertical;
  stack.alignment = NSLayoutAttributeLeading;
  stack.distribution = NSStackViewDistributionFill;
  stack.translatesAutoresizingMaskIntoConstraints = NO;
}

}  // namespace

@implementation TLMSectionPart {
  NSStackView* _headingStack;
  NSScrollView* _area;
  NSStackView* _rowStack;
  std::optional<talmo::PartList> _headings;
  std::optional<talmo::PartList> _rows;
  __weak TLMButtonPart* _revealed;
}

- (instancetype)initWithMaker:(talmo::MakePart)makePart {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  makeColumn(self);
  self.spacing = Metrics::small;
  _headingStack = [[NSStackView alloc] initWithFrame:NSZeroRect];
  makeColumn(_headingStack);
  _headingStack.edgeInsets = NSEdgeInsetsMake(Metrics::small, Metrics::step, 0, Metrics::step);
  _rowStack = [[TLMFlippedStackView alloc] initWithFrame:NSZeroRect];
  makeColumn(_rowStack);
  [self makeArea];
  [self addArrangedSubview:_headingStack];
  [self addArrangedSubview:_area];
  [NSLayoutConstraint activateConstraints:@[
    [_headingStack.widthAnchor constraintEqualToAnchor:self.widthAnchor],
    [_area.widthAnchor constraintEqualToAnchor:self.widthAnchor],
  ]];
  _headings.emplace(_headingStack, ViewRole::section, ViewRole::section, makePart);
  _rows.emplace(_rowStack, ViewRole::section, ViewRole::section, makePart);
  self.accessibilityElement = YES;
  self.accessibilityRole = NSAccessibilityGroupRole;
  return self;
}

- (void)makeArea {
  _area = [[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, Metrics::width, Metrics::rowHeight)];
  _area.drawsBackground = NO;
  _area.hasVerticalScroller = YES;
  _area.autohidesScrollers = YES;
  _area.scrollerStyle = NSScrollerStyleOverlay;
  _area.translatesAutoresizingMaskIntoConstraints = NO;
  _area.documentView = _rowStack;
  NSClipView* const clip = _area.contentView;
  NSLayoutConstraint* const whole =
      [_area.heightAnchor constraintEqualToAnchor:_rowStack.heightAnchor];
  whole.priority = wholeList;
  // It has no width before it is first laid out.
  NSLayoutConstraint* const trailing =
      [_rowStack.trailingAnchor constraintEqualToAnchor:clip.trailingAnchor];
  trailing.priority = NSLayoutPriorityRequired - 1;
  [NSLayoutConstraint activateConstraints:@[
    [_rowStack.topAnchor constraintEqualToAnchor:clip.topAnchor],
    [_rowStack.leadingAnchor constraintEqualToAnchor:clip.leadingAnchor],
    trailing,
    whole,
    [_area.heightAnchor constraintLessThanOrEqualToConstant:Metrics::longestList],
  ]];
}

- (void)show:(const View&)view {
  const auto firstRow = std::ranges::find_if(
      view.children, [](const View& child) { return child.role != ViewRole::header; });
  const std::span<const View> headings(view.children.begin(), firstRow);
  self.accessibilityLabel = talmo::toNSString(view.accessibilityLabel.empty() && !headings.empty()
                                                  ? talmo::spokenText(headings.front())
                                                  : view.accessibilityLabel);
  _headings->set(headings);
  _rows->set({firstRow, view.children.end()});
  TLMButtonPart* const row = [self highlightedRow];
  if (row != nil && row != _revealed) {
    // The rows' places are those of before until the layout has been worked out.
    [self layoutSubtreeIfNeeded];
    [row scrollRectToVisible:NSInsetRect(row.bounds, 0, -Metrics::step)];
  }
  _revealed = row;
}

- (TLMButtonPart*)highlightedRow {
  for (NSView* part : _rows->parts()) {
    if (![part isKindOfClass:[TLMButtonPart class]]) continue;
    TLMButtonPart* const row = static_cast<TLMButtonPart*>(part);
    if (row.isHighlighted) return row;
  }
  return nil;
}

@end
