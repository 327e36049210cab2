// From a press of a media key to the command that arrives at the player: through the whole program
// (`talmo`), and through the least that could do it (`floor`: one grab, one D-Bus message). Both
// run side by side on one private display and bus, on keys of their own, and the presses alternate,
// so that whatever the machine is doing meets both.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include <benchmark/benchmark.h>
#include <systemd/sd-bus.h>
#include <xcb/xcb.h>

#include "bench/Samples.h"
#include "tests/support/FakePlayer.h"
#include "tests/support/KeyPresser.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using Clock = std::chrono::steady_clock;

/// When the last command arrived.
class Arrival {
 public:
  void set() {
    const auto now = Clock::now();
    const std::lock_guard lock(mutex_);
    at_ = now;
    changed_.notify_one();
  }

  /// Waits for the next command; nothing when none comes.
  std::optional<Clock::time_point> take() {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(5), [this] { return at_.has_value(); });
    return std::exchange(at_, std::nullopt);
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Clock::time_point> at_;
};

/// The least program: grabs one key and sends one message for each press.
class Floor {
 public:
  Floor(const std::string& display, std::uint8_t keycode)
      : connection_(xcb_connect(display.c_str(), nullptr)) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_grab_key(connection_, 0, root, XCB_MOD_MASK_ANY, keycode, XCB_GRAB_MODE_ASYNC,
                 XCB_GRAB_MODE_ASYNC);
    // An answer to anything later means that the grab has been made.
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    thread_ = std::thread([this] { serve(); });
  }

  ~Floor() {
    xcb_client_message_event_t stop{};
    stop.response_type = XCB_CLIENT_MESSAGE;
    stop.format = 32;
    stop.window = window_;
    xcb_send_event(connection_, 0, window_, 0, reinterpret_cast<const char*>(&stop));
    xcb_flush(connection_);
    thread_.join();
    xcb_disconnect(connection_);
  }

  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

 private:
  void serve() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) return;
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection_)) {
      const unsigned type = event->response_type & 0x7FU;
      std::free(event);
      if (type == XCB_CLIENT_MESSAGE) break;
      if (type != XCB_KEY_PRESS) continue;
      sd_bus_call_method_async(bus, nullptr, "org.mpris.MediaPlayer2.floor",
                               "/org/mpris/MediaPlayer2", "org.mpris.MediaPlayer2.Player", "Next",
                               nullptr, nullptr, "");
      sd_bus_flush(bus);
      while (sd_bus_process(bus, nullptr) > 0) {
      }
    }
    sd_bus_flush_close_unref(bus);
  }

  static xcb_window_t makeWindow(xcb_connection_t* connection) {
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, 0, window,
                      xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
  }

  xcb_connection_t* connection_;
  const xcb_window_t window_ = makeWindow(connection_);
  std::thread thread_;
};

void pressToCommand(benchmark::State& state) {
  const PrivateDisplay display;
  const PrivateBus bus;
  const TemporaryFolder folder;
  ::setenv("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str(), 1);

  Arrival atTalmosPlayer;
  Arrival atFloorsPlayer;
  const FakePlayer talmosPlayer(
      {.name = "audacious", .onCommand = [&](const std::string&) { atTalmosPlayer.set(); }});
  const FakePlayer floorsPlayer(
      {.name = "floor", .onCommand = [&](const std::string&) { atFloorsPlayer.set(); }});

  std::filesystem::create_directories(folder.path() / "talmo");
  std::ofstream(folder.path() / "talmo" / "settings.json")
      << R"({"selectedTargetAppID": "audacious"})";
  TestProcess talmo({.arguments = {TALMO_PROGRAM},
                     .environment = {{"DISPLAY", display.name()},
                                     {"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                                     {"XDG_CONFIG_HOME", folder.path().string()}}});
  const auto logged = [&](const char* text) {
    return talmo.output().find(text) != std::string::npos;
  };
  if (!waitUntil([&] { return logged("Routing media keys to Audacious"); })) {
    state.SkipWithError("talmo did not start");
    return;
  }
  KeyPresser keys(display.name());
  const Floor floor(display.name(), keys.keycode("XF86AudioStop"));

  const auto measure = [&](const char* key, Arrival& arrival) {
    const auto start = Clock::now();
    keys.tap(key);
    const std::optional<Clock::time_point> arrived = arrival.take();
    if (!arrived) throw std::runtime_error("a command did not arrive");
    return *arrived - start;
  };
  Samples throughTalmo;
  Samples throughFloor;
  for (auto _ : state) {
    throughFloor.add(measure("XF86AudioStop", atFloorsPlayer));
    throughTalmo.add(measure("XF86AudioNext", atTalmosPlayer));
    state.SetIterationTime(throughTalmo.last());
  }
  state.counters["talmo_us"] = throughTalmo.median() * 1e6;
  state.counters["floor_us"] = throughFloor.median() * 1e6;
  state.counters["ratio"] = throughTalmo.median() / throughFloor.median();
}

BENCHMARK(pressToCommand)
    ->Name("key press to player command")
    ->UseManualTime()
    ->Iterations(1000)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace talmo::test

BENCHMARK_MAIN();
