#include "tests/support/ScreenPicture.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <xcb/xcb.h>

#include "platform/linux/x11/XConnection.h"
#include "platform/linux/x11/XReply.h"

namespace talmo::test {
namespace {

constexpr std::uint32_t colourBits = 0xFFFFFF;

}  // namespace

ScreenPicture ScreenPicture::take(const std::string& display, const PixelArea& area) {
  const std::unique_ptr<XConnection> connection = XConnection::open(display);
  if (!connection) throw std::runtime_error("no display " + display + " to look at");
  const XReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
      connection->get(),
      xcb_get_image(connection->get(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection->root(),
                    static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                    static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height),
                    ~0U),
      nullptr));
  ScreenPicture picture;
  picture.area_ = area;
  picture.pixels_.resize(static_cast<std::size_t>(area.width * area.height));
  // A private display has four bytes a pixel.
  const std::size_t size = picture.pixels_.size() * sizeof(std::uint32_t);
  if (!image || static_cast<std::size_t>(xcb_get_image_data_length(image.get())) != size) {
    throw std::runtime_error("the display gave no picture");
  }
  std::memcpy(picture.pixels_.data(), xcb_get_image_data(image.get()), size);
  for (std::uint32_t& pixel : picture.pixels_) pixel &= colourBits;
  return picture;
}

std::uint32_t ScreenPicture::at(int x, int y) const {
  return pixels_.at(static_cast<std::size_t>((y - area_.y) * area_.width + x - area_.x));
}

std::optional<PixelArea> ScreenPicture::difference(const ScreenPicture& other) const {
  int left = area_.right();
  int right = area_.x;
  int top = area_.bottom();
  int bottom = area_.y;
  for (int y = area_.y; y < area_.bottom(); ++y) {
    for (int x = area_.x; x < area_.right(); ++x) {
      if (at(x, y) == other.at(x, y)) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  if (right <= left) return std::nullopt;
  return PixelArea{.x = left, .y = top, .width = right - left, .height = bottom - top};
}

}  // namespace talmo::test
