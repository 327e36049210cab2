#include "panel/AppIconCache.h"

#include <map>

#include "platform/Platform.h"

namespace talmo {
namespace {

// Enough for the artwork's place on a screen of twice the usual density.
constexpr int pixels = 128;

struct State {
  std::map<std::string, std::optional<Image>> icons;
};

State& state() {
  return platform().states().of<State>();
}

}  // namespace

std::optional<Image> AppIconCache::icon(const std::string& bundleID) {
  auto& icons = state().icons;
  const auto cached = icons.find(bundleID);
  if (cached != icons.end()) return cached->second;
  const Workspace& workspace = platform().workspace();
  const std::optional<std::string> url = workspace.urlForApplication(bundleID);
  if (!url) return std::nullopt;
  return icons.emplace(bundleID, workspace.icon(*url, pixels)).first->second;
}

}  // namespace talmo
