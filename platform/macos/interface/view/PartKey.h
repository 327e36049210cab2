#pragma once

#include <string>

#include "platform/View.h"

namespace talmo {

/// By what a part is known again in the next value: one that changes its kind or role is another.
struct PartKey {
  std::string identity;
  ViewKind kind = ViewKind::vertical;
  ViewRole role = ViewRole::group;

  static PartKey of(const View& view) {
    return {.identity = view.identity, .kind = view.kind, .role = view.role};
  }

  bool operator==(const PartKey&) const = default;
};

}  // namespace talmo
