#include "tests/support/ScreenWindows.h"

#include <algorithm>
#include <stdexcept>

#include <xcb/xcb.h>

#include "platform/linux/x11/XReply.h"

namespace talmo::test {

bool ScreenWindows::Window::isOfType(const std::string& type) const {
  return std::ranges::find(types, type) != types.end();
}

ScreenWindows::ScreenWindows(const std::string& display) : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display + " to look at");
}

std::vector<ScreenWindows::Window> ScreenWindows::of(pid_t process) {
  std::vector<Window> found;
  collect(connection_->root(), process, found);
  return found;
}

std::optional<ScreenWindows::Window> ScreenWindows::titled(pid_t process,
                                                           const std::string& title) {
  for (Window& window : of(process)) {
    if (window.title == title) return std::move(window);
  }
  return std::nullopt;
}

std::uint32_t ScreenWindows::active() {
  const std::vector<xcb_window_t> active =
      connection_->windows(connection_->root(), "_NET_ACTIVE_WINDOW");
  return active.empty() ? 0 : active.front();
}

bool ScreenWindows::hasCompositor() {
  return connection_->selectionOwner("_NET_WM_CM_S0") != XCB_WINDOW_NONE;
}

PixelArea ScreenWindows::screen() const {
  const XReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
      connection_->get(), xcb_get_geometry(connection_->get(), connection_->root()), nullptr));
  if (!geometry) return {};
  return {.width = geometry->width, .height = geometry->height};
}

std::optional<PixelArea> ScreenWindows::area(std::uint32_t window) const {
  xcb_connection_t* const server = connection_->get();
  const XReply<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
  const XReply<xcb_translate_coordinates_reply_t> place(xcb_translate_coordinates_reply(
      server, xcb_translate_coordinates(server, window, connection_->root(), 0, 0), nullptr));
  if (!geometry || !place) return std::nullopt;
  return PixelArea{
      .x = place->dst_x, .y = place->dst_y, .width = geometry->width, .height = geometry->height};
}

void ScreenWindows::collect(std::uint32_t parent, pid_t process, std::vector<Window>& found) {
  for (const xcb_window_t child : connection_->children(parent)) {
    const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_->get(), xcb_get_window_attributes(connection_->get(), child), nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    if (std::optional<Window> window = describe(child, process)) {
      found.push_back(std::move(*window));
    } else {
      collect(child, process, found);
    }
  }
}

std::optional<ScreenWindows::Window> ScreenWindows::describe(std::uint32_t window, pid_t process) {
  const std::vector<std::uint32_t> owner = connection_->cardinals(window, "_NET_WM_PID");
  if (owner.empty() || static_cast<pid_t>(owner.front()) != process) return std::nullopt;
  const std::optional<PixelArea> place = area(window);
  if (!place) return std::nullopt;
  const std::vector<std::string> title = connection_->texts(window, "_NET_WM_NAME");
  Window described{.id = window,
                   .area = *place,
                   .title = title.empty() ? "" : title.front(),
                   .isManaged = connection_->hasProperty(window, "WM_STATE")};
  for (const xcb_atom_t type : connection_->atoms(window, "_NET_WM_WINDOW_TYPE")) {
    const XReply<xcb_get_atom_name_reply_t> name(xcb_get_atom_name_reply(
        connection_->get(), xcb_get_atom_name(connection_->get(), type), nullptr));
    if (!name) continue;
    described.types.emplace_back(
        xcb_get_atom_name_name(name.get()),
        static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get())));
  }
  return described;
}

}  // namespace talmo::test
