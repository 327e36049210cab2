#include "platform/linux/images/ThemedIcon.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

#include "platform/linux/images/ToolkitImage.h"

namespace talmo {

std::optional<Image> themedIcon(const std::string& name, int pixels) {
  if (qGuiApp == nullptr || name.empty()) return std::nullopt;
  const QString wanted = QString::fromStdString(name);
  const QIcon icon = name.starts_with('/') ? QIcon(wanted) : QIcon::fromTheme(wanted);
  // Pixels of the picture, whatever the scale of the screens.
  return fromToolkit(icon.pixmap(QSize(pixels, pixels), 1).toImage());
}

}  // namespace talmo
