#include "panel/RowIcon.h"

#include <optional>
#include <utility>

#include "panel/AppIconCache.h"
#include "panel/ViewParts.h"

namespace talmo {

View rowIcon(const TargetApp& app, ViewRole role) {
  if (const WebPlayerTarget* const web = app.webTarget()) {
    return assetView("icon", role, web->iconAssetName);
  }
  if (std::optional<Image> icon = AppIconCache::icon(app.bundleID)) {
    return pictureView("icon", role, *std::move(icon));
  }
  return symbolView("icon", role, "music.note");
}

}  // namespace talmo
