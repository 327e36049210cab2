#include "tests/backend/interface/InterfaceDesk.h"

#include <chrono>
#include <memory>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/support/TalmoWindows.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

QMenu* openMenu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

}  // namespace

InterfaceDesk::InterfaceDesk() : platform_(desktop_, TALMO_BUNDLE_FOLDER, true) {
  other_.focus();
  if (!waitUntil([this] { return windows_.active() != 0; })) {
    throw std::runtime_error("no window is in front");
  }
  otherWindow_ = windows_.active();
}

void InterfaceDesk::waitForKeys(std::uint64_t window) {
  if (!runUntil([&] { return windows_.active() == window && QApplication::focusWindow(); })) {
    throw std::runtime_error("the window did not get the keys");
  }
}

PixelArea InterfaceDesk::icon() {
  const pid_t self = ::getpid();
  // A menu that has just closed may still be on the screen, and get the clicks.
  const auto menuIsGone = [&] { return !talmoMenu(windows_, self); };
  if (!runUntil(talmoIconRests(windows_, self)) || !runUntil(menuIsGone)) {
    throw std::runtime_error("no icon came into the tray");
  }
  return talmoIcon(windows_, self).value();
}

PixelArea InterfaceDesk::otherArea() {
  return windows_.area(otherWindow_).value();
}

void InterfaceDesk::chooseFromMenu(const std::string& title) {
  whenMenuOpens([this, title] {
    QMenu& menu = *openMenu();
    for (QAction* const action : menu.actions()) {
      if (action->text().toStdString() != title) continue;
      const QPoint place = menu.mapToGlobal(menu.actionGeometry(action).center());
      mouse_.click(place.x(), place.y());
      return;
    }
    ADD_FAILURE() << "the menu has no " << title;
  });
}

void InterfaceDesk::dismissMenu() {
  whenMenuOpens([this] { keys_.tap("Escape"); });
}

void InterfaceDesk::whenMenuOpens(const std::function<void()>& act) {
  // The loop that serves the main queue then is the menu's own.
  const auto timer = std::make_shared<std::shared_ptr<Timer>>();
  *timer = services().dispatch().scheduledTimer(10ms, 0ms, [timer, act] {
    if (openMenu() == nullptr) return;
    (*timer)->invalidate();
    act();
  });
}

}  // namespace talmo::test
