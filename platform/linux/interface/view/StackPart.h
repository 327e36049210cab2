#pragma once

#include <optional>
#include <QColor>
#include <QWidget>

#include "platform/Image.h"
#include "platform/linux/interface/view/Part.h"
#include "platform/linux/interface/view/PartList.h"

class QBoxLayout;

namespace talmo {

/// A stack of parts, on the ground that its role has.
class StackPart : public QWidget, public Part {
 public:
  StackPart(const View& view, ViewRole container, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  const PartList& children() const { return children_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void tint(const View& view);

  QBoxLayout& layout_;
  PartList children_;
  // Of a card: its picture, and the colour of its light.
  std::optional<Image> picture_;
  QColor tint_;
};

}  // namespace talmo
