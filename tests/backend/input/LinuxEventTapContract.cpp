#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "tests/backend/input/InputDesk.h"
#include "tests/contract/EventTapContract.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::array<std::pair<std::int32_t, const char*>, 5> keys{{{16, "XF86AudioPlay"},
                                                                    {17, "XF86AudioNext"},
                                                                    {18, "XF86AudioPrev"},
                                                                    {19, "XF86AudioForward"},
                                                                    {20, "XF86AudioRewind"}}};

std::string keysym(std::int32_t code) {
  for (const auto& [key, name] : keys) {
    if (key == code) return name;
  }
  return {};
}

/// A real X server and real key presses.
class LinuxEventTapWorld : public EventTapWorld {
 public:
  LinuxDispatch& dispatch() override { return desk_.dispatch; }
  LinuxEventTap& eventTap() override { return desk_.eventTap; }

  bool runUntil(const std::function<bool()>& condition, Duration limit) override {
    return desk_.runUntil(condition, limit);
  }

  void press(std::int32_t code) override { desk_.keyboard.press(keysym(code)); }
  void release(std::int32_t code) override { desk_.keyboard.release(keysym(code)); }
  void hold(std::int32_t code) override {
    desk_.keyboard.setRepeat(40ms, 10ms);
    desk_.keyboard.press(keysym(code));
  }

  std::vector<Seen> othersSaw() override {
    std::vector<Seen> seen;
    for (const RecordedKey& recorded : desk_.window->keys()) {
      for (const auto& [code, name] : keys) {
        if (recorded.keysym == name) seen.push_back({.code = code, .isPress = recorded.isPress});
      }
    }
    return seen;
  }

  void refuseTaps() override {
    // Another program that was there first.
    const EventTapParameters parameters{
        .callback = [](TapEvent&, void*) { return TapVerdict::pass; }};
    occupant_ = LinuxEventTap().create(parameters);
  }

 private:
  InputDesk desk_;
  std::shared_ptr<EventTapPort> occupant_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Linux, EventTapContract,
                         testing::Values([] { return std::make_unique<LinuxEventTapWorld>(); }),
                         [](const auto&) { return "XServer"; });

}  // namespace talmo::test
