#pragma once

#include <QBrush>
#include <QLabel>
#include <QSize>
#include <QString>

#include "platform/linux/interface/view/Part.h"

namespace talmo {

/// A text. All but a body stay on one line, are cut at the end of a word, and then say all of
/// themselves as a tooltip.
class TextPart : public QLabel, public Part {
 public:
  TextPart(const View& view, ViewRole container, const Look& look, QWidget* parent);

  QWidget& widget() override { return *this; }
  void setView(const View& view) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool isOneLine() const { return role() != ViewRole::body; }
  /// Shows as much of the text as there is room for.
  void fit();
  void draw(const QBrush& brush);

  const ViewRole container_;
  QString whole_;
};

}  // namespace talmo
