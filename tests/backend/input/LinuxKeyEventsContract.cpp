#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/linux/input/LinuxKeyEvents.h"
#include "tests/backend/input/InputDesk.h"
#include "tests/contract/KeyEventsContract.h"

namespace talmo::test {
namespace {

constexpr std::array<std::pair<std::uint16_t, const char*>, 6> keys{
    {{49, "space"}, {124, "Right"}, {123, "Left"}, {45, "n"}, {35, "p"}, {40, "k"}}};

std::uint16_t keyCode(const RecordedKey& recorded) {
  for (const auto& [code, name] : keys) {
    // With Shift a letter is the capital one.
    if (recorded.keysym == name ||
        (recorded.keysym.size() == 1 && recorded.keysym[0] + 32 == *name))
      return code;
  }
  return 0;
}

/// A real X server; processes are windows that say whose they are.
class LinuxKeyEventsWorld : public KeyEventsWorld {
 public:
  LinuxDispatch& dispatch() override { return desk_.dispatch; }
  KeyEvents& keyEvents() override { return keyEvents_; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return desk_.runUntil(condition, limit);
  }

  ProcessIdentifier startApplication() override {
    const ProcessIdentifier process = ++lastProcess_;
    windows_[process] =
        std::make_unique<FocusWindow>(desk_.display.name(), FocusWindow::Options{.pid = process});
    return process;
  }

  ProcessIdentifier startProcessWithoutWindows() override { return ++lastProcess_; }

  void bringForward(ProcessIdentifier process) override { windows_.at(process)->focus(); }

  std::vector<KeyboardEvent> received(ProcessIdentifier process) override {
    std::vector<KeyboardEvent> events;
    const auto window = windows_.find(process);
    if (window == windows_.end()) return events;
    for (const RecordedKey& recorded : window->second->keys()) {
      std::uint64_t flags = 0;
      if ((recorded.state & XCB_MOD_MASK_SHIFT) != 0) flags |= 0x20000;
      if ((recorded.state & XCB_MOD_MASK_CONTROL) != 0) flags |= 0x40000;
      events.push_back(
          {.keyCode = keyCode(recorded), .isKeyDown = recorded.isPress, .flags = flags});
    }
    return events;
  }

 private:
  InputDesk desk_;
  LinuxKeyEvents keyEvents_{{}};
  ProcessIdentifier lastProcess_ = 4000;
  std::map<ProcessIdentifier, std::unique_ptr<FocusWindow>> windows_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Linux, KeyEventsContract,
                         testing::Values([] { return std::make_unique<LinuxKeyEventsWorld>(); }),
                         [](const auto&) { return "XServer"; });

}  // namespace talmo::test
