#include "platform/linux/interface/LinuxOwnWindow.h"

#include <utility>

namespace talmo {

LinuxOwnWindow::LinuxOwnWindow(const WindowParameters& parameters, const Vectors& vectors,
                               Appearance& appearance)
    : window_(*new TitledWindow(parameters, vectors, appearance)) {}

LinuxOwnWindow::~LinuxOwnWindow() {
  window_.onWillClose = nullptr;
  window_.hide();
  window_.deleteLater();
}

void LinuxOwnWindow::close() {
  if (window_.isVisible()) window_.close();
}

void LinuxOwnWindow::setOnWillClose(std::function<void()> callback) {
  window_.onWillClose = std::move(callback);
}

}  // namespace talmo
