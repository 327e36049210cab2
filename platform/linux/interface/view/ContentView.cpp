#include "platform/linux/interface/view/ContentView.h"

#include <algorithm>

namespace talmo {
namespace {

constexpr int idealWidth = 320;
constexpr int rowHeight = 40;

}  // namespace

void ContentView::setContent(const View& content) {
  setFixedHeight(rowHeight * std::max(1, static_cast<int>(content.children.size())));
}

QSize ContentView::sizeHint() const {
  return {idealWidth, minimumHeight()};
}

}  // namespace talmo
