#include "platform/linux/interface/view/ButtonPart.h"

#include <QAccessible>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QMargins>
#include <QPainter>
#include <QPen>
#include <QStringList>
#include <QToolTip>
#include <utility>

#include "platform/linux/interface/view/Metrics.h"

namespace talmo {
namespace {

constexpr qreal pressedOpacity = 0.6;
constexpr qreal ringWidth = 1.5;

QMargins marginsOf(ViewRole role) {
  switch (role) {
    case ViewRole::row:
      return {Metrics::step, 3, Metrics::wide, 3};
    case ViewRole::primaryButton:
      return {20, Metrics::step, 20, Metrics::step};
    case ViewRole::ghostButton:
      return {0, Metrics::step, 0, Metrics::step};
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
      return {Metrics::wide, Metrics::small, Metrics::wide, Metrics::small};
    case ViewRole::iconButton:
      return {6, 6, 6, 6};
    default:
      return {};
  }
}

int spacingOf(ViewRole role) {
  switch (role) {
    case ViewRole::row:
      return Metrics::wide;
    case ViewRole::primaryButton:
      return Metrics::step;
    default:
      return Metrics::small;
  }
}

/// What is written in the view, from its beginning.
void collectTexts(const View& view, QStringList& texts) {
  if (view.kind == ViewKind::text) texts += QString::fromStdString(view.text);
  for (const View& child : view.children) collectTexts(child, texts);
}

}  // namespace

ButtonPart::ButtonPart(const View& view, const Look& look, QWidget* parent)
    : QAbstractButton(parent),
      Part(view, look),
      layout_(*new QHBoxLayout(this)),
      children_(layout_, *this, view.role, look) {
  layout_.setContentsMargins(marginsOf(view.role));
  layout_.setSpacing(spacingOf(view.role));
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(view.role == ViewRole::row ? QSizePolicy::Preferred : QSizePolicy::Fixed,
                QSizePolicy::Fixed);
  if (view.role == ViewRole::linkButton) setCursor(Qt::PointingHandCursor);
  connect(this, &QAbstractButton::clicked, this, [this] { press(); });
}

void ButtonPart::setView(const View& view) {
  action_ = view.action;
  menu_ = view.menu;
  const bool wasOn = std::exchange(isOn_, view.isOn);
  const bool wasHighlighted = std::exchange(isHighlighted_, view.isHighlighted);
  QString name = QString::fromStdString(view.accessibilityLabel);
  if (name.isEmpty()) {
    QStringList texts;
    collectTexts(view, texts);
    name = texts.join(QStringLiteral(", "));
  }
  setAccessibleName(name);
  setAccessibleDescription(QString::fromStdString(view.accessibilityHint));
  children_.set(view.children);
  for (Part* child : children_.parts()) {
    child->widget().setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  update();
  if (isOn_ != wasOn) {
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
  }
  if (isHighlighted_ && !wasHighlighted) {
    QAccessibleEvent focus(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
  }
}

QSize ButtonPart::sizeHint() const {
  const QSize size = QAbstractButton::sizeHint();
  switch (role()) {
    case ViewRole::row:
      return size.expandedTo({0, Metrics::rowHeight});
    case ViewRole::primaryButton:
    case ViewRole::ghostButton:
      return size.expandedTo({0, Metrics::largeButtonHeight});
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
    case ViewRole::iconButton:
      return size.expandedTo({Metrics::buttonHeight, Metrics::buttonHeight});
    default:
      return size;
  }
}

QSize ButtonPart::minimumSizeHint() const {
  return {0, sizeHint().height()};
}

bool ButtonPart::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractButton::event(event);
  // The mouse does not see the texts in it, of which one may be cut.
  for (const QLabel* label : findChildren<QLabel*>()) {
    if (label->toolTip().isEmpty()) continue;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), label->toolTip(), this);
    return true;
  }
  event->ignore();
  return true;
}

void ButtonPart::paintEvent(QPaintEvent*) {
  const Palette& palette = *look().palette;
  const bool isHovered = underMouse() || isDown();
  QColor ground(Qt::transparent);
  switch (role()) {
    case ViewRole::primaryButton:
    case ViewRole::prominentButton:
      ground = isHovered ? palette.prominentHover : palette.prominent;
      break;
    case ViewRole::plainButton:
      ground = isHovered ? palette.plainHover : palette.plain;
      break;
    case ViewRole::linkButton:
    case ViewRole::ghostButton:
      break;
    default:
      if (isHovered) ground = palette.hover;
  }
  QPainter painter(this);
  if (role() == ViewRole::linkButton && isHovered) {
    painter.fillRect(0, height() - 1, width(), 1, palette.accent);
  }
  if (role() == ViewRole::ghostButton && isHovered) {
    painter.fillRect(0, height() - Metrics::step - 2, width(), 1, palette.secondaryText);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(rect(), Metrics::rowRadius, Metrics::rowRadius);
  if (!isHighlighted_) return;
  painter.setPen(QPen(palette.highlightRing, ringWidth));
  painter.setBrush(palette.highlight);
  constexpr qreal inset = ringWidth / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                          Metrics::rowRadius - inset, Metrics::rowRadius - inset);
}

void ButtonPart::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void ButtonPart::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void ButtonPart::mousePressEvent(QMouseEvent* event) {
  QAbstractButton::mousePressEvent(event);
  dim();
}

void ButtonPart::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  dim();
}

void ButtonPart::mouseReleaseEvent(QMouseEvent* event) {
  QAbstractButton::mouseReleaseEvent(event);
  dim();
}

void ButtonPart::hideEvent(QHideEvent* event) {
  QAbstractButton::hideEvent(event);
  // Nothing leaves a window that is gone; it would still look hovered when it comes back.
  setAttribute(Qt::WA_UnderMouse, false);
  setDown(false);
  dim();
}

void ButtonPart::press() {
  if (menu_) {
    look().popUp(menu_(), *this);
    return;
  }
  // What it does may show a next view, which replaces it.
  const std::function<void()> action = action_;
  if (action) action();
}

void ButtonPart::dim() {
  if (isDown() == (graphicsEffect() != nullptr)) return;
  if (!isDown()) {
    setGraphicsEffect(nullptr);
    return;
  }
  auto* effect = new QGraphicsOpacityEffect(this);
  effect->setOpacity(pressedOpacity);
  setGraphicsEffect(effect);
}

}  // namespace talmo
