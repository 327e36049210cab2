#include "platform/linux/interface/view/ElidedText.h"

#include <QTextBoundaryFinder>

namespace talmo {
namespace {

/// Without the spaces and separators that would dangle before the ellipsis.
QString withoutEnd(QString text) {
  while (!text.isEmpty()) {
    const QChar last = text.back();
    const bool dangles = last.isSpace() || last.category() == QChar::Punctuation_Open ||
                         last.category() == QChar::Punctuation_InitialQuote ||
                         last.category() == QChar::Punctuation_Dash ||
                         last.category() == QChar::Punctuation_Connector ||
                         QStringLiteral(",;:.&/|+").contains(last);
    if (!dangles) break;
    text.chop(1);
  }
  return text;
}

}  // namespace

ElidedText ElidedText::of(const QString& text, const QFontMetricsF& metrics, qreal width) {
  if (metrics.horizontalAdvance(text) <= width) return {.text = text};
  QTextBoundaryFinder words(QTextBoundaryFinder::Word, text);
  QString longest;
  for (qsizetype end = words.toNextBoundary(); end > 0 && end < text.size();
       end = words.toNextBoundary()) {
    const QString beginning = withoutEnd(text.left(end));
    if (beginning.isEmpty()) continue;
    const QString candidate = beginning + QChar(0x2026);
    if (metrics.horizontalAdvance(candidate) > width) break;
    longest = candidate;
  }
  if (longest.isEmpty()) return {.text = text, .fades = true};
  return {.text = longest};
}

}  // namespace talmo
