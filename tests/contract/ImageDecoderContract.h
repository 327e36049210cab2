#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/contract/ImageDecoderWorld.h"

namespace talmo::test {

/// What every `ImageDecoder` does. Instantiated once per backend and kind of image.
class ImageDecoderContract
    : public testing::TestWithParam<std::function<std::unique_ptr<ImageDecoderWorld>()>> {
 protected:
  ImageDecoderWorld& world() { return *world_; }
  std::optional<Image> decode(const std::string& bytes) { return world_->decoder().decode(bytes); }

 private:
  const std::unique_ptr<ImageDecoderWorld> world_ = GetParam()();
};

}  // namespace talmo::test
