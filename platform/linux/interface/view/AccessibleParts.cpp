#include "platform/linux/interface/view/AccessibleParts.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QObject>
#include <QString>

#include "platform/linux/interface/view/AccessibleButton.h"
#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/interface/view/Part.h"

namespace talmo {
namespace {

QAccessible::Role roleOfStack(ViewRole role) {
  switch (role) {
    case ViewRole::warning:
      return QAccessible::AlertMessage;
    case ViewRole::card:
    case ViewRole::section:
    case ViewRole::offer:
    case ViewRole::footer:
      return QAccessible::Grouping;
    default:
      return QAccessible::LayeredPane;
  }
}

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
  auto* part = dynamic_cast<Part*>(object);
  if (part == nullptr) return nullptr;
  switch (part->kind()) {
    case ViewKind::button:
      return new AccessibleButton(static_cast<ButtonPart&>(*part));
    case ViewKind::vertical:
    case ViewKind::horizontal:
      return new QAccessibleWidget(&part->widget(), roleOfStack(part->role()));
    case ViewKind::text:
      // A label speaks for itself.
      if (part->role() != ViewRole::header) return nullptr;
      return new QAccessibleWidget(&part->widget(), QAccessible::Heading);
    case ViewKind::equalizer:
      return new QAccessibleWidget(&part->widget(), QAccessible::Animation);
    default:
      return new QAccessibleWidget(&part->widget(), QAccessible::Graphic);
  }
}

}  // namespace

void installAccessibleParts() {
  QAccessible::installFactory(interfaceOf);
}

}  // namespace talmo
