#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace talmo {

/// A connection to the X server, closed with the object. It belongs to one thread at a time.
///
/// Functions that read from the server wait for its answer; on a connection that has died, and for
/// a window that is gone, they give the same as for a property that is not there.
class XConnection {
 public:
  /// Connects to a display, or to $DISPLAY for an empty name; nothing when there is none.
  static std::unique_ptr<XConnection> open(const std::string& display = {});

  ~XConnection();
  XConnection(const XConnection&) = delete;
  XConnection& operator=(const XConnection&) = delete;

  xcb_connection_t* get() const { return connection_; }

  /// The root window of the display's default screen.
  xcb_window_t root() const { return root_; }

  /// The number of that screen.
  int screen() const { return screen_; }

  /// Whether the server has gone; it does not come back on this connection. Notices what an earlier
  /// request or the socket has shown, without asking the server.
  bool isDead() const;

  /// The atom of that name, remembered; `XCB_ATOM_NONE` only when the connection has died.
  xcb_atom_t atom(const std::string& name);

  /// The numbers of a CARDINAL property; empty when there is none.
  std::vector<std::uint32_t> cardinals(xcb_window_t window, const std::string& property);

  /// The windows of a WINDOW property; empty when there is none.
  std::vector<xcb_window_t> windows(xcb_window_t window, const std::string& property);

  /// The texts of a UTF8_STRING or STRING property, which stores them with a zero byte between
  /// (WM_CLASS has two); empty when there is none. A STRING is given as its Latin-1 bytes.
  std::vector<std::string> texts(xcb_window_t window, const std::string& property);

  /// The atoms of an ATOM property; empty when there is none.
  std::vector<xcb_atom_t> atoms(xcb_window_t window, const std::string& property);

  /// Whether a window has the property, of whatever type.
  bool hasProperty(xcb_window_t window, const std::string& property);

  /// The window that owns a selection; `XCB_WINDOW_NONE` when none does.
  xcb_window_t selectionOwner(const std::string& selection);

  /// The children of a window, bottom-most first.
  std::vector<xcb_window_t> children(xcb_window_t window) const;

 private:
  XConnection(xcb_connection_t* connection, int screen);

  std::vector<std::uint32_t> longs(xcb_window_t window, const std::string& property,
                                   xcb_atom_t type);

  xcb_connection_t* const connection_;
  const int screen_;
  const xcb_window_t root_;
  std::map<std::string, xcb_atom_t> atoms_;
};

}  // namespace talmo
