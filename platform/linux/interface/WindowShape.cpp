#include "platform/linux/interface/WindowShape.h"

#include <memory>
#include <QPainterPath>
#include <QPolygon>
#include <QRectF>
#include <string>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/view/Palette.h"
#include "platform/linux/x11/XConnection.h"

namespace talmo {

bool hasCompositor() {
  const std::unique_ptr<XConnection> connection = XConnection::open();
  // freedesktop.org's window manager hints.
  return connection &&
         connection->selectionOwner("_NET_WM_CM_S" + std::to_string(connection->screen())) !=
             XCB_WINDOW_NONE;
}

QRegion roundedShape(const QSize& size) {
  QPainterPath ground;
  ground.addRoundedRect(QRectF(QPointF(), QSizeF(size)), ContentView::cornerRadius,
                        ContentView::cornerRadius);
  return {ground.toFillPolygon().toPolygon()};
}

QColor opaqueGround(const Appearance& appearance) {
  QColor ground = (appearance.isDark() ? Palette::dark() : Palette::light()).glass;
  ground.setAlphaF(1);
  return ground;
}

}  // namespace talmo
