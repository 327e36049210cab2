#include "platform/linux/interface/TrayWindow.h"

#include <QApplication>
#include <QWidget>

namespace talmo {

QWidget* trayWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (isTrayWindow(window)) return window;
  }
  return nullptr;
}

bool isTrayWindow(const QObject* object) {
  // The toolkit's own class, which has no other name that one could ask for.
  return object->inherits("QSystemTrayIconSys");
}

}  // namespace talmo
