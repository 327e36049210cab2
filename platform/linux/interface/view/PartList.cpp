#include "platform/linux/interface/view/PartList.h"

#include <algorithm>
#include <memory>
#include <QBoxLayout>
#include <QLayoutItem>
#include <QWidget>
#include <utility>

namespace talmo {
namespace {

bool hasText(const View& view) {
  return view.kind == ViewKind::text ||
         (view.kind == ViewKind::vertical && std::ranges::any_of(view.children, hasText));
}

bool isSmallButton(const Part& part) {
  return part.kind() == ViewKind::button && part.role() != ViewRole::row;
}

}  // namespace

void PartList::set(std::span<const View> views) {
  std::vector<Part*> next;
  next.reserve(views.size());
  for (const View& view : views) {
    Part* part = taken(view);
    if (part == nullptr) {
      part = Part::make(view, container_, look_, &parent_);
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
  arrange();
  for (std::size_t index = 0; index < views.size(); ++index) {
    Part& part = *parts_[index];
    part.setView(views[index]);
    // Qt shows a new child of a visible widget later; it counts for the size at once.
    part.widget().show();
    part.widget().updateGeometry();
  }
  if (layout_.direction() == QBoxLayout::LeftToRight) {
    const auto first = std::ranges::find_if(views, hasText);
    for (int index = 0; index < layout_.count(); ++index) {
      layout_.setStretch(index, index == first - views.begin() ? 1 : 0);
    }
  }
}

Part* PartList::taken(const View& view) {
  const auto found = std::ranges::find_if(
      parts_, [&view](const Part* part) { return part != nullptr && part->shows(view); });
  return found == parts_.end() ? nullptr : std::exchange(*found, nullptr);
}

void PartList::arrange() {
  while (layout_.count() > 0) delete layout_.takeAt(0);
  const bool isVertical = layout_.direction() == QBoxLayout::TopToBottom;
  for (Part* part : parts_) {
    Qt::Alignment alignment;
    if (!isVertical) {
      const bool isText = part->kind() == ViewKind::vertical || part->kind() == ViewKind::text;
      if (!isText) alignment = container_ == ViewRole::warning ? Qt::AlignTop : Qt::AlignVCenter;
    } else if (isSmallButton(*part) || part->role() == ViewRole::chip) {
      alignment = Qt::AlignLeft;
    }
    layout_.addWidget(&part->widget(), 0, alignment);
  }
  // Buttons in a line stand at its beginning.
  if (!isVertical && std::ranges::all_of(parts_, [](Part* part) { return isSmallButton(*part); })) {
    layout_.addStretch(1);
  }
}

}  // namespace talmo
