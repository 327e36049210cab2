#include "tests/desktop/show/Wallpaper.h"

#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include <xcb/xcb.h>

#include "platform/linux/x11/XReply.h"

namespace talmo::test {
namespace {

// An evening sky, from above to below.
constexpr std::array<int, 3> above{0x2A, 0x3B, 0x5C};
constexpr std::array<int, 3> below{0xB9, 0x8A, 0x8F};

std::uint32_t colour(int row, int height) {
  std::uint32_t value = 0;
  for (std::size_t part = 0; part < above.size(); ++part) {
    const int mixed = above.at(part) + (below.at(part) - above.at(part)) * row / height;
    value = (value << 8U) | static_cast<std::uint32_t>(mixed);
  }
  return value;
}

}  // namespace

Wallpaper::Wallpaper(const std::string& display) : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " for a wallpaper");
  xcb_connection_t* const server = connection_->get();
  const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(server)).data;
  const xcb_pixmap_t picture = xcb_generate_id(server);
  const xcb_gcontext_t pen = xcb_generate_id(server);
  xcb_create_pixmap(server, screen->root_depth, picture, screen->root, screen->width_in_pixels,
                    screen->height_in_pixels);
  xcb_create_gc(server, pen, picture, 0, nullptr);
  for (int row = 0; row < screen->height_in_pixels; ++row) {
    const std::uint32_t value = colour(row, screen->height_in_pixels);
    xcb_change_gc(server, pen, XCB_GC_FOREGROUND, &value);
    const xcb_rectangle_t line{
        .x = 0, .y = static_cast<std::int16_t>(row), .width = screen->width_in_pixels, .height = 1};
    xcb_poly_fill_rectangle(server, picture, pen, 1, &line);
  }
  xcb_change_window_attributes(server, screen->root, XCB_CW_BACK_PIXMAP, &picture);
  // Where compositors look for it.
  for (const char* const name : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"}) {
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, screen->root, connection_->atom(name),
                        XCB_ATOM_PIXMAP, 32, 1, &picture);
  }
  const XReply<xcb_generic_error_t> error(xcb_request_check(
      server, xcb_clear_area_checked(server, 0, screen->root, 0, 0, screen->width_in_pixels,
                                     screen->height_in_pixels)));
  if (error || connection_->isDead()) throw std::runtime_error("the display took no wallpaper");
}

}  // namespace talmo::test
