#include <memory>
#include <QImage>
#include <string>

#include "platform/linux/images/LinuxImageDecoder.h"
#include "tests/backend/images/ImageFiles.h"
#include "tests/contract/ImageDecoderContract.h"

namespace talmo::test {
namespace {

/// Real files of one kind.
class LinuxImageDecoderWorld : public ImageDecoderWorld {
 public:
  explicit LinuxImageDecoderWorld(const char* format) : format_(format) {}

  ImageDecoder& decoder() override { return decoder_; }
  std::string encode(int width, int height, const std::string& name) override {
    return imageFile(picture(width, height, name), format_);
  }
  std::string claim(int width, int height) override {
    return emptyPng(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
  }

 private:
  const char* const format_;
  LinuxImageDecoder decoder_;
};

template <const char* const& format>
std::unique_ptr<ImageDecoderWorld> make() {
  return std::make_unique<LinuxImageDecoderWorld>(format);
}

constexpr const char* png = "png";
constexpr const char* jpeg = "jpeg";

INSTANTIATE_TEST_SUITE_P(LinuxPng, ImageDecoderContract, testing::Values(&make<png>));
INSTANTIATE_TEST_SUITE_P(LinuxJpeg, ImageDecoderContract, testing::Values(&make<jpeg>));

}  // namespace
}  // namespace talmo::test
