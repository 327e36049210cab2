#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <string>

#include "platform/Bundle.h"

namespace talmo {

/// The pictures that the program is delivered with as vectors. Main thread only. One that is not
/// there, or is no vector, is an empty pixmap.
class Vectors {
 public:
  /// The bundle must outlive it.
  explicit Vectors(const Bundle& bundle) : bundle_(bundle) {}

  /// A symbol (`resources/symbols`) in one colour. The size is in points, for a screen of `scale`
  /// pixels a point.
  QPixmap symbol(const std::string& name, const QSize& size, qreal scale,
                 const QColor& colour) const;

  /// An image (`resources/images`) in its own colours, or, with a colour, only its shape in that.
  QPixmap image(const std::string& name, const QSize& size, qreal scale,
                const QColor& colour = QColor()) const;

 private:
  QPixmap drawn(const std::string& name, const QSize& size, qreal scale,
                const QColor& colour) const;

  const Bundle& bundle_;
};

}  // namespace talmo
