#pragma once

#include <string>
#include <vector>

#include "platform/View.h"

namespace talmo::test {

// What a person finds in a view, in the order in which it is read.

template <class Visitor>
void visit(const View& view, const Visitor& visitor) {
  visitor(view);
  for (const View& child : view.children) visit(child, visitor);
}

inline std::vector<std::string> symbolsOf(const View& view) {
  std::vector<std::string> found;
  visit(view, [&](const View& part) {
    if (part.kind == ViewKind::symbol) found.push_back(part.text);
  });
  return found;
}

/// The button with that text; nothing (a null pointer) when there is none.
inline const View* buttonWith(const View& view, const std::string& text) {
  const View* found = nullptr;
  visit(view, [&](const View& part) {
    if (part.kind != ViewKind::button) return;
    for (const View& child : part.children) {
      if (child.kind == ViewKind::text && child.text == text) found = &part;
    }
  });
  return found;
}

/// The first part of that kind; nothing (a null pointer) when there is none.
inline const View* partOf(const View& view, ViewKind kind) {
  const View* found = nullptr;
  visit(view, [&](const View& part) {
    if (part.kind == kind && found == nullptr) found = &part;
  });
  return found;
}

}  // namespace talmo::test
