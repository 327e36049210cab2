#include "platform/simulated/SimulatedWindow.h"

namespace talmo {
namespace {

const View* find(const View& view, const std::string& identity) {
  if (view.identity == identity) return &view;
  for (const View& child : view.children) {
    if (const View* const found = find(child, identity)) return found;
  }
  return nullptr;
}

}  // namespace

SimulatedWindow::SimulatedWindow(std::vector<SimulatedWindow*>& windows,
                                 const SimulatedApplication& application,
                                 WindowParameters parameters)
    : windows_(windows),
      application_(application),
      parameters_(std::move(parameters)),
      activationsSeen_(application.activations()) {
  windows_.push_back(this);
}

SimulatedWindow::~SimulatedWindow() {
  std::erase(windows_, this);
}

void SimulatedWindow::setContent(const View& content) {
  content_ = content;
  ++contentChanges_;
}

void SimulatedWindow::center() {
  activationsSeen_ = application_.activations();
  calls_.emplace_back("center");
}

void SimulatedWindow::makeKeyAndOrderFront() {
  if (std::exchange(activationsSeen_, application_.activations()) != application_.activations()) {
    calls_.emplace_back("activate");
  }
  calls_.emplace_back("front");
  isVisible_ = true;
}

void SimulatedWindow::close() {
  if (!std::exchange(isVisible_, false)) return;
  calls_.emplace_back("close");
  // A copy, as the callback may let go of the window.
  const std::function<void()> willClose = onWillClose_;
  if (willClose) willClose();
}

bool SimulatedWindow::press(const std::string& identity) {
  const View* const button = isVisible_ ? find(content_, identity) : nullptr;
  if (button == nullptr || !button->action) return false;
  // A copy, as the content may be replaced meanwhile.
  const std::function<void()> action = button->action;
  action();
  return true;
}

}  // namespace talmo
