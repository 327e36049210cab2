#pragma once

#include <QFontMetricsF>
#include <QString>

namespace talmo {

/// What of a one-line text is shown where there is only so much room.
struct ElidedText {
  QString text;
  /// The text still has no room and fades out at its end: it is a single word, which is never cut.
  bool fades = false;

  /// The longest beginning that ends where a word does and fits with an ellipsis, or all of it.
  static ElidedText of(const QString& text, const QFontMetricsF& metrics, qreal width);

  bool operator==(const ElidedText&) const = default;
};

}  // namespace talmo
