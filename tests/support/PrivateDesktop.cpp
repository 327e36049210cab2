#include "tests/support/PrivateDesktop.h"

#include <charconv>
#include <fstream>
#include <signal.h>
#include <stdexcept>
#include <stdlib.h>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <xcb/xcb.h>

#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

template <typename Value>
std::unique_ptr<Value, decltype(&::free)> owned(Value* value) {
  return {value, &::free};
}

/// Whether a window manager has taken the window in (ICCCM 4.1.3.1).
bool isManaged(xcb_connection_t* connection, xcb_window_t window) {
  constexpr std::string_view name = "WM_STATE";
  const auto atom = owned(xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 0, name.size(), name.data()), nullptr));
  if (!atom) return false;
  const auto property = owned(xcb_get_property_reply(
      connection,
      xcb_get_property(connection, 0, window, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1),
      nullptr));
  return property && xcb_get_property_value_length(property.get()) > 0;
}

/// Waits until the display's window manager takes in new windows. It announces itself before, and
/// overlooks windows that want to be mapped in between; so a window asks until it is taken in.
bool waitForWindowManager(const std::string& display) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
      xcb_connect(display.c_str(), nullptr), &xcb_disconnect);
  if (xcb_connection_has_error(connection.get()) != 0) return false;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
  const xcb_window_t window = xcb_generate_id(connection.get());
  xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  return waitUntil(
      [&] {
        xcb_map_window(connection.get(), window);
        return isManaged(connection.get(), window);
      },
      20s, 20ms);
}

/// One entry of a process's environment as it was at its start.
bool environmentHolds(pid_t pid, const std::string& entry) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/environ", std::ios::binary);
  for (std::string one; std::getline(file, one, '\0');) {
    if (one == entry) return true;
  }
  return false;
}

/// The machine's fonts, with one that the look of the interface is judged in for its texts.
void writeFontSettings(const std::filesystem::path& file) {
  std::ofstream settings(file);
  settings << R"(<?xml version="1.0"?><fontconfig><include>/etc/fonts/fonts.conf</include>)";
  for (const char* const family : {"Sans Serif", "sans-serif", "system-ui"}) {
    settings << R"(<alias binding="strong"><family>)" << family
             << "</family><prefer><family>Inter</family></prefer></alias>";
  }
  settings << "</fontconfig>\n";
}

}  // namespace

PrivateDesktop::PrivateDesktop() {
  makeEnvironment();
  display_ = std::make_unique<PrivateDisplay>();
  environment_["DISPLAY"] = display_->name();
  bus_ = std::make_unique<PrivateBus>(environment_);
  environment_["DBUS_SESSION_BUS_ADDRESS"] = bus_->address();
  sound_ = std::make_unique<PrivateSound>(folder() / "run", environment_);
  environment_["PULSE_SERVER"] = sound_->address();
  startWindowManager();
}

PrivateDesktop::~PrivateDesktop() {
  // What a program of this desktop has started is nobody's child here, so it is looked for.
  for (const int request : {SIGTERM, SIGKILL}) {
    for (const pid_t pid : allProcesses()) ::kill(pid, request);
    if (waitUntil([this] { return allProcesses().empty(); }, 3s, 20ms)) return;
  }
}

void PrivateDesktop::makeEnvironment() {
  environment_ = {
      {"HOME", (folder() / "home").string()},
      {"XDG_RUNTIME_DIR", (folder() / "run").string()},
      {"XDG_CONFIG_HOME", configFolder().string()},
      {"XDG_DATA_HOME", dataFolder().string()},
      {"XDG_CACHE_HOME", (folder() / "cache").string()},
      {"XDG_STATE_HOME", (folder() / "state").string()},
      {"TMPDIR", (folder() / "tmp").string()},
  };
  for (const auto& [name, path] : environment_) {
    std::filesystem::create_directories(path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }
  const std::filesystem::path fontSettings = folder() / "fonts.conf";
  writeFontSettings(fontSettings);
  environment_.insert({
      {"FONTCONFIG_FILE", fontSettings.string()},
      {"LC_ALL", "C.UTF-8"},
      // No way back to the session that the test was started in.
      {"XAUTHORITY", ""},
      {"WAYLAND_DISPLAY", ""},
      {"SESSION_MANAGER", ""},
      {"XDG_CURRENT_DESKTOP", ""},
      {"XDG_SESSION_TYPE", "x11"},
      {"QT_QPA_PLATFORM", "xcb"},
      {"GDK_BACKEND", "x11"},
      // No services behind the toolkits that this desktop has no use for.
      {"NO_AT_BRIDGE", "1"},
      {"GIO_USE_VFS", "local"},
      {"GSETTINGS_BACKEND", "memory"},
  });
}

void PrivateDesktop::startWindowManager() {
  windowManager_ = start({"openbox", "--sm-disable"});
  if (!waitForWindowManager(displayName())) {
    throw std::runtime_error("the window manager did not start: " + windowManager_->output());
  }
}

std::unique_ptr<TestProcess> PrivateDesktop::start(std::vector<std::string> arguments) const {
  return std::make_unique<TestProcess>(
      TestProcess::Start{.arguments = std::move(arguments), .environment = environment_});
}

std::vector<pid_t> PrivateDesktop::processes(const std::string& programName) const {
  std::vector<pid_t> found;
  for (const pid_t pid : allProcesses()) {
    std::error_code error;
    const std::filesystem::path program =
        std::filesystem::read_symlink("/proc/" + std::to_string(pid) + "/exe", error);
    if (!error && program.filename() == programName) found.push_back(pid);
  }
  return found;
}

std::vector<pid_t> PrivateDesktop::allProcesses() const {
  const std::string mark = "XDG_RUNTIME_DIR=" + (folder() / "run").string();
  std::vector<pid_t> found;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
    const std::string name = entry.path().filename().string();
    pid_t pid = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), pid);
    if (failure != std::errc() || end != name.data() + name.size()) continue;
    if (pid != ::getpid() && environmentHolds(pid, mark)) found.push_back(pid);
  }
  return found;
}

}  // namespace talmo::test
