#include "tests/support/ViewOutline.h"

#include <algorithm>
#include <set>

namespace talmo::test {
namespace {

std::string name(ViewRole role) {
  switch (role) {
    case ViewRole::group:
      return "group";
    case ViewRole::glass:
      return "glass";
    case ViewRole::material:
      return "material";
    case ViewRole::step:
      return "step";
    case ViewRole::tray:
      return "tray";
    case ViewRole::segments:
      return "segments";
    case ViewRole::warning:
      return "warning";
    case ViewRole::card:
      return "card";
    case ViewRole::section:
      return "section";
    case ViewRole::offer:
      return "offer";
    case ViewRole::footer:
      return "footer";
    case ViewRole::chip:
      return "chip";
    case ViewRole::headline:
      return "headline";
    case ViewRole::title:
      return "title";
    case ViewRole::label:
      return "label";
    case ViewRole::body:
      return "body";
    case ViewRole::detail:
      return "detail";
    case ViewRole::header:
      return "header";
    case ViewRole::artwork:
      return "artwork";
    case ViewRole::icon:
      return "icon";
    case ViewRole::symbol:
      return "symbol";
    case ViewRole::warningSymbol:
      return "warningSymbol";
    case ViewRole::successSymbol:
      return "successSymbol";
    case ViewRole::mark:
      return "mark";
    case ViewRole::row:
      return "row";
    case ViewRole::primaryButton:
      return "primaryButton";
    case ViewRole::ghostButton:
      return "ghostButton";
    case ViewRole::prominentButton:
      return "prominentButton";
    case ViewRole::plainButton:
      return "plainButton";
    case ViewRole::linkButton:
      return "linkButton";
    case ViewRole::iconButton:
      return "iconButton";
    case ViewRole::equalizer:
      return "equalizer";
    case ViewRole::segment:
      return "segment";
    case ViewRole::toggle:
      return "toggle";
  }
  return {};
}

/// How its children stand, where that is not what nearly all of that role do.
std::string direction(const View& view) {
  return view.kind == ViewKind::horizontal ? " ->" : "";
}

std::string content(const View& view) {
  switch (view.kind) {
    case ViewKind::text:
      return " \"" + view.text + "\"";
    case ViewKind::symbol:
      return " <symbol " + view.text + ">";
    case ViewKind::asset:
      return " <asset " + view.text + ">";
    case ViewKind::picture:
      return view.image ? " <picture>" : " <no picture>";
    default:
      return {};
  }
}

void write(const View& view, const std::string& indent, std::string& result) {
  result += indent + name(view.role) + " " + view.identity + direction(view) + content(view);
  if (view.isOn) result += " on";
  if (view.isHighlighted) result += " highlighted";
  if (!view.accessibilityLabel.empty()) result += " label=\"" + view.accessibilityLabel + "\"";
  if (!view.accessibilityHint.empty()) result += " hint=\"" + view.accessibilityHint + "\"";
  if (view.action) result += " action";
  if (view.menu) result += " menu";
  result += "\n";
  for (const View& child : view.children) write(child, indent + "  ", result);
}

void collect(const View& view, std::vector<std::string>& found) {
  if (view.kind == ViewKind::text) found.push_back(view.text);
  for (const View& child : view.children) collect(child, found);
}

void collectAmbiguous(const View& view, std::vector<std::string>& found) {
  std::set<std::string> identities;
  for (const View& child : view.children) identities.insert(child.identity);
  if (identities.size() != view.children.size() || identities.contains("")) {
    found.push_back(view.identity);
  }
  for (const View& child : view.children) collectAmbiguous(child, found);
}

}  // namespace

std::string outline(const View& view) {
  std::string result;
  write(view, "", result);
  return result;
}

const View* part(const View& view, const std::vector<std::string>& path) {
  const View* current = &view;
  for (const std::string& identity : path) {
    const auto found = std::ranges::find(current->children, identity, &View::identity);
    if (found == current->children.end()) return nullptr;
    current = &*found;
  }
  return current;
}

std::vector<std::string> texts(const View& view) {
  std::vector<std::string> found;
  collect(view, found);
  return found;
}

std::vector<std::string> ambiguousParts(const View& view) {
  std::vector<std::string> found;
  collectAmbiguous(view, found);
  return found;
}

}  // namespace talmo::test
