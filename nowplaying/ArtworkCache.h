#pragma once

#include <functional>
#include <optional>

#include "nowplaying/AdapterText.h"
#include "platform/Image.h"

namespace talmo {

/// The last artwork that was decoded, so that a line that repeats it costs nothing. One entry. Used
/// on one queue.
class ArtworkCache {
 public:
  /// The picture in `base64`, by `decode` when it is not the one at hand. What is no picture leaves
  /// the cache as it was.
  std::optional<Image> image(
      const std::optional<AdapterText>& base64,
      const std::function<std::optional<Image>(const std::optional<AdapterText>&)>& decode) {
    if (!base64) return std::nullopt;
    if (base64_ == base64) return image_;
    const std::optional<Image> decoded = decode(base64);
    if (decoded) {
      base64_ = base64;
      image_ = decoded;
    }
    return decoded;
  }

 private:
  std::optional<AdapterText> base64_;
  std::optional<Image> image_;
};

}  // namespace talmo
