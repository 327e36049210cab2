// The least that Talmo's panel is measured beside: an icon in the tray that shows an empty window,
// or hides it, with the same toolkit.

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QWidget>

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  QWidget window(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
  window.setGeometry(100, 500, 320, 217);
  QPixmap picture(22, 22);
  picture.fill(Qt::darkGreen);
  QSystemTrayIcon icon{QIcon(picture)};
  QObject::connect(&icon, &QSystemTrayIcon::activated,
                   [&window] { window.setVisible(!window.isVisible()); });
  icon.show();
  return QApplication::exec();
}
