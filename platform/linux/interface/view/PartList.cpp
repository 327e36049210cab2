#include "platform/linux/interface/view/PartList.h"

#include <algorithm>
#include <cstddef>
#include <QBoxLayout>
#include <QLayoutItem>
#include <QWidget>
#include <utility>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {
namespace {

bool isSmallButton(const Part& part) {
  return part.kind() == ViewKind::button && part.role() != ViewRole::row;
}

int gapBetween(const Part& above, const Part& below, int gap) {
  const bool areLines = above.kind() == ViewKind::text && below.kind() == ViewKind::text;
  const bool areRows = above.role() == ViewRole::row && below.role() == ViewRole::row;
  return areLines || areRows ? Metrics::tight : gap;
}

}  // namespace

void PartList::set(std::span<const View> views) {
  const std::vector<Part*> before = parts_;
  std::vector<Part*> next;
  next.reserve(views.size());
  for (const View& view : views) {
    Part* part = taken(view);
    if (part == nullptr) {
      part = look_.makePart(view, container_, look_, &parent_);
    }
    next.push_back(part);
  }
  std::swap(parts_, next);
  // What is left may be in the middle of an event of its own.
  for (Part* gone : next) {
    if (gone == nullptr) continue;
    layout_.removeWidget(&gone->widget());
    gone->widget().hide();
    gone->widget().deleteLater();
  }
  if (parts_ != before) arrange();
  for (std::size_t index = 0; index < views.size(); ++index) {
    Part& part = *parts_[index];
    part.setView(views[index]);
    // Qt shows a new child of a visible widget later; it counts for the size at once.
    part.widget().show();
    part.widget().updateGeometry();
  }
}

Part* PartList::taken(const View& view) {
  const auto found = std::ranges::find_if(
      parts_, [&view](const Part* part) { return part != nullptr && part->shows(view); });
  return found == parts_.end() ? nullptr : std::exchange(*found, nullptr);
}

void PartList::arrange() {
  while (layout_.count() > 0) delete layout_.takeAt(0);
  if (layout_.direction() == QBoxLayout::TopToBottom) {
    arrangeVertically();
  } else {
    arrangeHorizontally();
  }
}

void PartList::arrangeVertically() {
  layout_.setSpacing(0);
  const Part* above = nullptr;
  for (Part* part : parts_) {
    if (above != nullptr) layout_.addSpacing(gapBetween(*above, *part, gap_));
    // The room that is left is above the buttons.
    if (part->role() == ViewRole::tray) layout_.addStretch(1);
    const bool isOwnWidth = isSmallButton(*part) || part->role() == ViewRole::chip;
    layout_.addWidget(&part->widget(), part->role() == ViewRole::step ? 1 : 0,
                      isOwnWidth ? Qt::AlignLeft : Qt::Alignment());
    above = part;
  }
}

void PartList::arrangeHorizontally() {
  const auto wide =
      std::ranges::find_if(parts_, [](const Part* part) { return part->takesRoom(); });
  const bool isTray = container_ == ViewRole::tray;
  for (Part* part : parts_) {
    if (isTray && part == parts_.back()) layout_.addStretch(1);
    const bool isWide = wide != parts_.end() && part == *wide;
    layout_.addWidget(&part->widget(), isWide ? 1 : 0, Qt::AlignVCenter);
  }
  // Where nothing does, all stand at the beginning of the line.
  if (wide == parts_.end() && !isTray) layout_.addStretch(1);
}

}  // namespace talmo
