#include "platform/simulated/SimulatedPanel.h"

#include <algorithm>
#include <utility>

namespace talmo {
namespace {

constexpr double width = 320;
constexpr double lineHeight = 20;
// HIToolbox's Events.h.
constexpr std::uint16_t escape = 53;

double heightOf(const View& view) {
  const bool isStack = view.kind == ViewKind::vertical || view.kind == ViewKind::horizontal ||
                       view.kind == ViewKind::button;
  if (!isStack) return lineHeight;
  double height = 0;
  for (const View& child : view.children) {
    height = view.kind == ViewKind::vertical ? height + heightOf(child)
                                             : std::max(height, heightOf(child));
  }
  return height;
}

/// Calls a callback, which may be empty or replace itself.
template <class... Arguments>
void call(const std::function<void(Arguments...)>& callback, Arguments... arguments) {
  const auto copy = callback;
  if (copy) copy(arguments...);
}

}  // namespace

SimulatedPanel::SimulatedPanel(std::vector<SimulatedPanel*>& panels,
                               SimulatedApplication& application, SimulatedEventMonitors& monitors)
    : panels_(panels), monitors_(monitors), window_(application.makeWindow()) {
  panels_.push_back(this);
}

SimulatedPanel::~SimulatedPanel() {
  std::erase(panels_, this);
}

Size SimulatedPanel::idealSize(const View& content) {
  return {.width = width, .height = heightOf(content)};
}

void SimulatedPanel::setContent(const View& content) {
  content_ = content;
  ++contentChanges_;
  const Size size = idealSize(content);
  if (size == std::exchange(size_, size)) return;
  call(onSizeChange_, size);
}

void SimulatedPanel::setFrame(const Rect& frame, bool isAnimated) {
  frame_ = frame;
  frameChanges_.push_back({.frame = frame, .isAnimated = isAnimated, .isVisible = isVisible_});
}

void SimulatedPanel::makeKeyAndOrderFront() {
  isVisible_ = true;
  isKey_ = true;
}

void SimulatedPanel::orderOut() {
  isVisible_ = false;
  resignKey();
}

void SimulatedPanel::setOnSizeChange(std::function<void(Size)> callback) {
  onSizeChange_ = std::move(callback);
}

void SimulatedPanel::setOnCancel(std::function<void()> callback) {
  onCancel_ = std::move(callback);
}

void SimulatedPanel::setOnResignKey(std::function<void()> callback) {
  onResignKey_ = std::move(callback);
}

bool SimulatedPanel::press(std::uint16_t keyCode, std::uint64_t modifiers) {
  if (!isKey_) return false;
  return monitors_.send({.type = InterfaceEvent::Type::keyDown,
                         .window = window_,
                         .keyCode = keyCode,
                         .modifiers = modifiers},
                        [&] {
                          if (keyCode == escape) call(onCancel_);
                        });
}

bool SimulatedPanel::click(const View& button) {
  if (!isVisible_) return false;
  // A copy, as the content may be replaced meanwhile.
  const std::function<void()> action = button.action;
  return monitors_.send({.type = InterfaceEvent::Type::leftMouseDown, .window = window_},
                        [&] { call(action); });
}

void SimulatedPanel::resignKey() {
  if (std::exchange(isKey_, false)) call(onResignKey_);
}

}  // namespace talmo
