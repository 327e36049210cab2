#pragma once

#include <string>

namespace talmo {

/// A scriptable player that only this backend's system has. The fields are those of a target.
struct LocalPlayer {
  std::string id;
  std::string displayName;
  std::string bundleID;

  bool operator==(const LocalPlayer&) const = default;
};

}  // namespace talmo
