#include "platform/macos/interface/view/SpokenText.h"

namespace talmo {
namespace {

void append(const View& view, std::string& spoken) {
  if (view.kind == ViewKind::text && !view.text.empty()) {
    if (!spoken.empty()) spoken += ", ";
    spoken += view.text;
  }
  for (const View& child : view.children) append(child, spoken);
}

}  // namespace

std::string spokenText(const View& view) {
  if (!view.accessibilityLabel.empty()) return view.accessibilityLabel;
  std::string spoken;
  append(view, spoken);
  return spoken;
}

}  // namespace talmo
