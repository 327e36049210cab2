#pragma once

#include <string>
#include <utility>
#include <vector>

#include "panel/ViewParts.h"

namespace talmo {

/// What the steps have in common: a header above, buttons below, and the body between them.
inline View stepScaffold(std::string identity, std::vector<View> header, std::vector<View> body,
                         View tray) {
  return verticalView(std::move(identity), ViewRole::step,
                      {verticalView("header", ViewRole::group, std::move(header)),
                       verticalView("body", ViewRole::group, std::move(body)), std::move(tray)});
}

}  // namespace talmo
