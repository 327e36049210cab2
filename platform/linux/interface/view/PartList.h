#pragma once

#include <span>
#include <vector>

#include "platform/linux/interface/view/Look.h"
#include "platform/linux/interface/view/Metrics.h"
#include "platform/linux/interface/view/Part.h"
#include "platform/View.h"

class QBoxLayout;
class QWidget;

namespace talmo {

/// The parts in a stack or button. Main thread only.
class PartList {
 public:
  /// The layout is the one of `parent`; `container` is its role. `gap` is the height
  /// between two parts that are more than lines of one text.
  PartList(QBoxLayout& layout, QWidget& parent, ViewRole container, const Look& look,
           int gap = Metrics::step)
      : layout_(layout), parent_(parent), container_(container), look_(look), gap_(gap) {}

  /// Keeps what the views still show, makes what is new and lets go of the rest.
  void set(std::span<const View> views);

  const std::vector<Part*>& parts() const { return parts_; }

 private:
  Part* taken(const View& view);
  void arrange();
  void arrangeVertically();
  void arrangeHorizontally();

  QBoxLayout& layout_;
  QWidget& parent_;
  const ViewRole container_;
  const Look& look_;
  const int gap_;
  std::vector<Part*> parts_;
};

}  // namespace talmo
