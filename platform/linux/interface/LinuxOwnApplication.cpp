#include "platform/linux/interface/LinuxOwnApplication.h"

#include <chrono>
#include <cstdlib>
#include <QApplication>
#include <QIcon>
#include <QString>
#include <utility>

#include "platform/linux/interface/AboutPanel.h"
#include "platform/linux/interface/QuitRequests.h"

namespace talmo {
namespace {

// From the press to the release, and a message from one program to the other.
constexpr Duration longestClick = std::chrono::milliseconds(500);

}  // namespace

LinuxOwnApplication::LinuxOwnApplication(LinuxDispatch& dispatch, const Bundle& bundle)
    : dispatch_(dispatch) {
  if (qApp == nullptr) return;
  quitRequests_ = std::make_unique<QuitRequests>([this] { terminate(); });
  about_ = std::make_unique<AboutPanel>();
  if (const std::optional<std::string> icon = bundle.resourcePath("images/AppIcon", "svg")) {
    QApplication::setWindowIcon(QIcon(QString::fromStdString(*icon)));
  }
}

LinuxOwnApplication::~LinuxOwnApplication() = default;

void LinuxOwnApplication::activate() {
  if (about_) about_->bringForward();
}

void LinuxOwnApplication::terminate() {
  isTerminating_ = true;
  dispatch_.stopMainLoop();
}

void LinuxOwnApplication::orderFrontStandardAboutPanel() {
  if (about_) about_->show();
}

void LinuxOwnApplication::performHapticFeedback(int) {}

std::optional<std::string> LinuxOwnApplication::environmentVariable(const std::string& name) const {
  const char* const value = std::getenv(name.c_str());
  if (value == nullptr) return std::nullopt;
  return value;
}

void LinuxOwnApplication::handle(const InterfaceEvent& event,
                                 const std::function<void()>& handler) {
  const std::optional<InterfaceEvent> before = std::exchange(currentEvent_, event);
  handler();
  currentEvent_ = before;
}

bool LinuxOwnApplication::isStillPressElsewhere() const {
  return pressedElsewhere_ && dispatch_.uptime() - *pressedElsewhere_ < longestClick;
}

}  // namespace talmo
