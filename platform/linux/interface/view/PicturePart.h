#pragma once

#include <optional>
#include <QImage>
#include <QSize>
#include <QWidget>

#include "platform/Image.h"
#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// An artwork with rounded corners, or an application's icon, which has a shape of its own.
class PicturePart : public QWidget, public Part {
 public:
  PicturePart(const View& view, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isIcon() const;
  /// The picture as it is shown, made when it, its size or the screen's scale is another.
  const QImage& scaled();

  std::optional<Image> image_;
  QImage scaled_;
};

}  // namespace talmo
