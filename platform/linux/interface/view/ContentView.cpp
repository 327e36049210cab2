#include "platform/linux/interface/view/ContentView.h"

#include <QEvent>
#include <QPainter>

#include "platform/linux/interface/view/AccessibleParts.h"
#include "platform/linux/interface/view/Grounds.h"
#include "platform/linux/interface/view/PartFactory.h"

namespace talmo {

ContentView::ContentView(const Vectors& vectors, Appearance& appearance, QWidget* parent)
    : QWidget(parent),
      appearance_(appearance),
      look_{.vectors = vectors, .palette = nullptr, .makePart = makePart, .popUp = {}} {
  installAccessibleParts();
  setFocusPolicy(Qt::NoFocus);
  connect(&appearance, &Appearance::changed, this, [this] { render(); });
}

void ContentView::setContent(const View& content) {
  content_ = content;
  render();
}

QSize ContentView::sizeHint() const {
  return ideal_;
}

void ContentView::paintEvent(QPaintEvent*) {
  const bool isWindow = content_.role == ViewRole::glass || content_.role == ViewRole::material;
  if (!isWindow || look_.palette == nullptr) return;
  QPainter painter(this);
  paintGlass(painter, rect(), *look_.palette);
}

void ContentView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void ContentView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && root_ != nullptr) render();
}

void ContentView::render() {
  look_.palette = appearance_.isDark() ? &Palette::dark() : &Palette::light();
  if (root_ == nullptr || !root_->shows(content_)) {
    if (root_ != nullptr) {
      root_->widget().hide();
      root_->widget().deleteLater();
    }
    root_ = makePart(content_, content_.role, look_, this);
  }
  root_->setView(content_);
  root_->widget().show();
  const QSize before = ideal_;
  const QWidget& widget = root_->widget();
  const int width = Metrics::width;
  ideal_ = {width,
            widget.hasHeightForWidth() ? widget.heightForWidth(width) : widget.sizeHint().height()};
  layOut();
  update();
  if (ideal_ == before) return;
  updateGeometry();
  if (onSizeChange_) onSizeChange_(ideal_);
}

void ContentView::layOut() {
  if (root_ != nullptr) root_->widget().setGeometry(rect());
}

}  // namespace talmo
