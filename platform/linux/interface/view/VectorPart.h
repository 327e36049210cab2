#pragma once

#include <QSize>
#include <QWidget>
#include <string>

#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// A symbol or one of the program's own images.
class VectorPart : public QWidget, public Part {
 public:
  VectorPart(const View& view, ViewRole container, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Whether it stands for a picture that there is none of.
  bool isTile() const;

  const ViewRole container_;
  std::string name_;
};

}  // namespace talmo
