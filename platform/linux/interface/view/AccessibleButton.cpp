#include "platform/linux/interface/view/AccessibleButton.h"

namespace talmo {

AccessibleButton::AccessibleButton(ButtonPart& button)
    : QAccessibleWidget(&button, QAccessible::Button), button_(button) {}

QAccessible::State AccessibleButton::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.pressed = button_.isDown();
  state.hasPopup = button_.hasMenu();
  if (button_.role() != ViewRole::row) return state;
  state.checkable = true;
  state.checked = button_.isOn();
  // The window has the keys; this is the row that they are about.
  state.focusable = true;
  state.focused = button_.isHighlighted();
  state.selectable = true;
  state.selected = button_.isHighlighted();
  return state;
}

QStringList AccessibleButton::actionNames() const {
  return {pressAction()};
}

void AccessibleButton::doAction(const QString& name) {
  if (name == pressAction()) button_.click();
}

}  // namespace talmo
