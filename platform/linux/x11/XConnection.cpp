#include "platform/linux/x11/XConnection.h"

#include <cstddef>
#include <poll.h>
#include <string_view>

#include "platform/linux/x11/XReply.h"

namespace talmo {
namespace {

/// What one property read takes at most, in four-byte units: more than any list of windows or text
/// that is looked at.
constexpr std::uint32_t propertyLimit = 64 * 1024;

xcb_window_t rootOf(xcb_connection_t* connection, int screen) {
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  while (screen-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
  return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_WINDOW_NONE};
}

}  // namespace

std::unique_ptr<XConnection> XConnection::open(const std::string& display) {
  int screen = 0;
  xcb_connection_t* const connection =
      xcb_connect(display.empty() ? nullptr : display.c_str(), &screen);
  if (xcb_connection_has_error(connection) != 0) {
    xcb_disconnect(connection);
    return nullptr;
  }
  return std::unique_ptr<XConnection>(new XConnection(connection, screen));
}

XConnection::XConnection(xcb_connection_t* connection, int screen)
    : connection_(connection), screen_(screen), root_(rootOf(connection, screen)) {}

XConnection::~XConnection() {
  xcb_disconnect(connection_);
}

bool XConnection::isDead() const {
  if (xcb_connection_has_error(connection_) != 0) return true;
  // A server that closed the socket while nobody was reading.
  pollfd socket{.fd = xcb_get_file_descriptor(connection_), .events = 0, .revents = 0};
  return ::poll(&socket, 1, 0) == 1 && (socket.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

xcb_atom_t XConnection::atom(const std::string& name) {
  if (const auto known = atoms_.find(name); known != atoms_.end()) return known->second;
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
      connection_,
      xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
      nullptr));
  if (!reply) return XCB_ATOM_NONE;
  return atoms_[name] = reply->atom;
}

std::vector<std::uint32_t> XConnection::cardinals(xcb_window_t window,
                                                  const std::string& property) {
  return longs(window, property, XCB_ATOM_CARDINAL);
}

std::vector<xcb_window_t> XConnection::windows(xcb_window_t window, const std::string& property) {
  return longs(window, property, XCB_ATOM_WINDOW);
}

std::vector<xcb_atom_t> XConnection::atoms(xcb_window_t window, const std::string& property) {
  return longs(window, property, XCB_ATOM_ATOM);
}

std::vector<std::string> XConnection::texts(xcb_window_t window, const std::string& property) {
  const xcb_atom_t name = atom(property);
  const xcb_atom_t utf8 = atom("UTF8_STRING");
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_,
      xcb_get_property(connection_, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, propertyLimit),
      nullptr));
  if (!reply || reply->format != 8 || (reply->type != utf8 && reply->type != XCB_ATOM_STRING)) {
    return {};
  }
  std::string_view bytes(static_cast<const char*>(xcb_get_property_value(reply.get())),
                         static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
  std::vector<std::string> found;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\0');
    found.emplace_back(bytes.substr(0, end));
    if (end == std::string_view::npos) break;
    bytes.remove_prefix(end + 1);
  }
  return found;
}

bool XConnection::hasProperty(xcb_window_t window, const std::string& property) {
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_,
      xcb_get_property(connection_, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY, 0, 0),
      nullptr));
  return reply && reply->type != XCB_ATOM_NONE;
}

xcb_window_t XConnection::selectionOwner(const std::string& selection) {
  const XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
      connection_, xcb_get_selection_owner(connection_, atom(selection)), nullptr));
  return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

std::vector<xcb_window_t> XConnection::children(xcb_window_t window) const {
  const XReply<xcb_query_tree_reply_t> reply(
      xcb_query_tree_reply(connection_, xcb_query_tree(connection_, window), nullptr));
  if (!reply) return {};
  const xcb_window_t* const first = xcb_query_tree_children(reply.get());
  return {first, first + xcb_query_tree_children_length(reply.get())};
}

std::vector<std::uint32_t> XConnection::longs(xcb_window_t window, const std::string& property,
                                              xcb_atom_t type) {
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_, xcb_get_property(connection_, 0, window, atom(property), type, 0, propertyLimit),
      nullptr));
  if (!reply || reply->format != 32 || reply->type != type) return {};
  const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + xcb_get_property_value_length(reply.get()) / 4};
}

}  // namespace talmo
