#include "tests/backend/applications/FakeWindowManager.h"

#include <stdexcept>

namespace talmo::test {

FakeWindowManager::FakeWindowManager(const std::string& display)
    : connection_(XConnection::open(display)) {
  if (!connection_) throw std::runtime_error("no display " + display);
}

xcb_window_t FakeWindowManager::add(const std::string& windowClass, ProcessIdentifier process) {
  const xcb_window_t window = xcb_generate_id(connection_->get());
  xcb_create_window(connection_->get(), XCB_COPY_FROM_PARENT, window, connection_->root(), 0, 0,
                    100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  const std::string classes = windowClass + '\0' + windowClass + '\0';
  xcb_change_property(connection_->get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                      XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(classes.size()),
                      classes.data());
  if (process != 0) {
    setNumbers(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, {static_cast<std::uint32_t>(process)});
  }
  windows_.push_back(window);
  setNumbers(connection_->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows_);
  settle();
  return window;
}

void FakeWindowManager::activate(xcb_window_t window) {
  setNumbers(connection_->root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, {window});
  settle();
}

void FakeWindowManager::setNumbers(xcb_window_t window, const std::string& property,
                                   xcb_atom_t type, const std::vector<std::uint32_t>& values) {
  xcb_change_property(connection_->get(), XCB_PROP_MODE_REPLACE, window,
                      connection_->atom(property), type, 32,
                      static_cast<std::uint32_t>(values.size()), values.data());
}

void FakeWindowManager::settle() {
  connection_->children(connection_->root());
}

}  // namespace talmo::test
