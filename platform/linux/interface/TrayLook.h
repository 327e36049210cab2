#pragma once

#include <QColor>
#include <QRect>

namespace talmo {

/// A colour that is easy to see on the tray: the one that the tray names, or else black or white by
/// what is on the screen at `icon`'s corner, or else that of the desktop's texts.
QColor trayForeground(const QRect& icon);

}  // namespace talmo
