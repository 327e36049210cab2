#pragma once

class QObject;
class QWidget;

namespace talmo {

/// The window of ours that the tray has taken in; nothing where another program shows the icon for
/// us. Main thread.
QWidget* trayWindow();

/// Whether `object` is that window.
bool isTrayWindow(const QObject* object);

}  // namespace talmo
