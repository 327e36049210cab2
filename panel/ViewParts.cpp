#include "panel/ViewParts.h"

#include <utility>

namespace talmo {
namespace {

View part(std::string identity, ViewKind kind, ViewRole role) {
  View view;
  view.identity = std::move(identity);
  view.kind = kind;
  view.role = role;
  return view;
}

View namedPart(std::string identity, ViewKind kind, ViewRole role, std::string text) {
  View view = part(std::move(identity), kind, role);
  view.text = std::move(text);
  return view;
}

View stack(std::string identity, ViewKind kind, ViewRole role, std::vector<View> children) {
  View view = part(std::move(identity), kind, role);
  view.children = std::move(children);
  return view;
}

}  // namespace

View textView(std::string identity, ViewRole role, std::string text) {
  return namedPart(std::move(identity), ViewKind::text, role, std::move(text));
}

View symbolView(std::string identity, ViewRole role, std::string name) {
  return namedPart(std::move(identity), ViewKind::symbol, role, std::move(name));
}

View assetView(std::string identity, ViewRole role, std::string name) {
  return namedPart(std::move(identity), ViewKind::asset, role, std::move(name));
}

View pictureView(std::string identity, ViewRole role, Image image) {
  View view = part(std::move(identity), ViewKind::picture, role);
  view.image = std::move(image);
  return view;
}

View verticalView(std::string identity, ViewRole role, std::vector<View> children) {
  return stack(std::move(identity), ViewKind::vertical, role, std::move(children));
}

View horizontalView(std::string identity, ViewRole role, std::vector<View> children) {
  return stack(std::move(identity), ViewKind::horizontal, role, std::move(children));
}

View buttonView(std::string identity, ViewRole role, std::vector<View> children,
                std::function<void()> action) {
  View view = stack(std::move(identity), ViewKind::button, role, std::move(children));
  view.action = std::move(action);
  return view;
}

View textButtonView(std::string identity, ViewRole role, std::string text,
                    std::function<void()> action, const std::optional<std::string>& symbol) {
  std::vector<View> children;
  if (symbol) children.push_back(symbolView("symbol", ViewRole::symbol, *symbol));
  children.push_back(textView("text", ViewRole::label, std::move(text)));
  return buttonView(std::move(identity), role, std::move(children), std::move(action));
}

}  // namespace talmo
