#pragma once

#include <functional>
#include <QSize>
#include <QWidget>
#include <utility>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/Look.h"
#include "platform/linux/interface/view/Metrics.h"
#include "platform/linux/interface/view/Part.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/Menu.h"
#include "platform/View.h"

namespace talmo {

/// Shows a view with widgets. A part that keeps its identity, kind and role keeps its widget and
/// with it hover and motion. Main thread only.
class ContentView : public QWidget {
 public:
  /// How round the corners of the glass are, for a window that has to be cut to its shape.
  static constexpr int cornerRadius = Metrics::glassRadius;

  /// Vectors and appearance must outlive it.
  ContentView(const Vectors& vectors, Appearance& appearance, QWidget* parent = nullptr);

  /// When the ideal size is another than before, the size callback is called before this returns.
  void setContent(const View& content);

  /// The ideal size.
  QSize sizeHint() const override;

  /// Called when the ideal size has become another one, by a content or by the desktop's font.
  void setOnSizeChange(std::function<void(QSize)> callback) { onSizeChange_ = std::move(callback); }

  /// Called to show a menu at a button of the content.
  void setOnMenu(std::function<void(const Menu& menu, QWidget& button)> callback) {
    look_.popUp = std::move(callback);
  }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void render();
  void layOut();

  Appearance& appearance_;
  Look look_;
  View content_;
  Part* root_ = nullptr;
  QSize ideal_;
  std::function<void(QSize)> onSizeChange_;
};

}  // namespace talmo
