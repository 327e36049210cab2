#pragma once

#include <string>

#include "platform/ImageDecoder.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Decodes one kind of image, a line of text: "image WIDTHxHEIGHT NAME\n". The picture is of one
/// colour, which stands for the name. Any thread.
class SimulatedImageDecoder : public ImageDecoder {
 public:
  /// The bytes of an image; the name may be anything without a line break.
  static std::string encode(int width, int height, const std::string& name);

  std::optional<Image> decode(std::string_view bytes) override;

  /// How often something was to be decoded.
  int decodes() const;

 private:
  mutable Mutex mutex_;
  int decodes_ TALMO_GUARDED_BY(mutex_) = 0;
};

}  // namespace talmo
