#pragma once

#include <QAccessible>
#include <QAccessibleWidget>
#include <QString>
#include <QStringList>

#include "platform/linux/interface/view/ButtonPart.h"

namespace talmo {

/// A button as assistive technology sees it: one thing with a name, whatever it is drawn of.
class AccessibleButton : public QAccessibleWidget {
 public:
  explicit AccessibleButton(ButtonPart& button);

  QAccessible::State state() const override;

  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  ButtonPart& button_;
};

}  // namespace talmo
