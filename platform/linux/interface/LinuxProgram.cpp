#include "platform/linux/interface/LinuxProgram.h"

#include <QApplication>
#include <QIcon>
#include <QString>
#include <utility>

#include "platform/linux/interface/AboutPanel.h"

namespace talmo {

LinuxProgram::LinuxProgram(LinuxDispatch& dispatch, const Bundle& bundle) : dispatch_(dispatch) {
  if (qApp == nullptr) return;
  about_ = std::make_unique<AboutPanel>();
  if (const std::optional<std::string> icon = bundle.resourcePath("images/AppIcon", "svg")) {
    QApplication::setWindowIcon(QIcon(QString::fromStdString(*icon)));
  }
}

LinuxProgram::~LinuxProgram() = default;

void LinuxProgram::activate() {
  if (about_) about_->bringForward();
}

void LinuxProgram::terminate() {
  isTerminating_ = true;
  dispatch_.stopMainLoop();
}

void LinuxProgram::orderFrontStandardAboutPanel() {
  if (about_) about_->show();
}

void LinuxProgram::performHapticFeedback(int) {}

void LinuxProgram::handle(const InterfaceEvent& event, const std::function<void()>& handler) {
  const std::optional<InterfaceEvent> before = std::exchange(currentEvent_, event);
  handler();
  currentEvent_ = before;
}

}  // namespace talmo
