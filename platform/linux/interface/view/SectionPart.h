#pragma once

#include <QWidget>

#include "platform/linux/interface/view/Part.h"
#include "platform/linux/interface/view/PartList.h"

class QVBoxLayout;

namespace talmo {

class ButtonPart;
class ListArea;

/// A headed list that scrolls below its heading when it is long, and keeps the highlighted row in
/// sight.
class SectionPart : public QWidget, public Part {
 public:
  SectionPart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void reveal(ButtonPart& row);
  ButtonPart* highlighted() const;

  // Qt's parents own them.
  QVBoxLayout& layout_;
  QWidget& list_;
  ListArea& area_;
  QVBoxLayout& headingLayout_;
  QVBoxLayout& listLayout_;
  PartList headings_;
  PartList rows_;
  ButtonPart* revealed_ = nullptr;
};

}  // namespace talmo
