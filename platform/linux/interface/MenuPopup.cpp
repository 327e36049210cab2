#include "platform/linux/interface/MenuPopup.h"

#include <functional>
#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QPoint>
#include <QString>

#include "platform/Menu.h"

namespace talmo {
namespace {

/// A title, whose ampersands are no mnemonics.
QString asTitle(const std::string& text) {
  return QString::fromStdString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

void popUp(const Menu& menu, const QPoint& place) {
  QMenu popup;
  std::function<void()> chosen;
  for (const MenuItem& item : menu.items) {
    if (item.isSeparator()) {
      popup.addSeparator();
      continue;
    }
    QAction* const action = popup.addAction(asTitle(item.title));
    if (item.isChecked) {
      action->setCheckable(true);
      action->setChecked(true);
    }
    if (!item.keyEquivalent.empty()) {
      action->setShortcut(
          QKeySequence(QLatin1String("Ctrl+") + QString::fromStdString(item.keyEquivalent)));
      action->setShortcutVisibleInContextMenu(true);
    }
    QObject::connect(action, &QAction::triggered, [&chosen, run = item.action] { chosen = run; });
  }
  popup.exec(place);
  if (menu.didClose) menu.didClose();
  if (chosen) chosen();
}

}  // namespace talmo
