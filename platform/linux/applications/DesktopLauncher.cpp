#include "platform/linux/applications/DesktopLauncher.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>
#include <system_error>
#include <unistd.h>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/applications/SuccessorMark.h"

namespace talmo {
namespace {

struct CloseBus {
  void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
};
struct UnrefMessage {
  void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, CloseBus>;
using Message = std::unique_ptr<sd_bus_message, UnrefMessage>;
using Error = std::optional<std::string>;

Error describe(int result) {
  if (result >= 0) return std::nullopt;
  return std::generic_category().message(-result);
}

/// In the new process, where nothing may be called that is not safe after a fork.
void detach(gpointer) {
  ::setsid();
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

Error startAsProcess(const DesktopEntry& entry, const std::vector<std::string>& urls) {
  // GIO announces what it launches on a bus connection that it shares within the process, and that
  // would end the process when the bus goes away.
  const GObjectHandle<GDBusConnection> shared(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (shared) g_dbus_connection_set_exit_on_close(shared.get(), FALSE);
  constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                  G_SPAWN_STDERR_TO_DEV_NULL);
  GList* list = nullptr;
  for (const std::string& url : urls) list = g_list_append(list, g_strdup(url.c_str()));
  GError* error = nullptr;
  g_desktop_app_info_launch_uris_as_manager(entry.get(), list, nullptr, flags, detach, nullptr,
                                            nullptr, nullptr, &error);
  g_list_free_full(list, g_free);
  if (error == nullptr) return std::nullopt;
  return GlibError(error)->message;
}

/// Has the application take the request on the bus, which starts it where it does not run
/// (freedesktop.org's desktop entries, "D-Bus Activation").
Error startByBus(sd_bus* bus, const std::string& name, const std::vector<std::string>& urls) {
  std::string path = "/" + name;
  std::ranges::replace(path, '.', '/');
  std::ranges::replace(path, '-', '_');
  sd_bus_message* raw = nullptr;
  int result = sd_bus_message_new_method_call(bus, &raw, name.c_str(), path.c_str(),
                                              "org.freedesktop.Application",
                                              urls.empty() ? "Activate" : "Open");
  const Message call(raw);
  if (result >= 0 && !urls.empty()) {
    std::vector<std::string> copies = urls;
    std::vector<char*> list;
    list.reserve(copies.size() + 1);
    for (std::string& url : copies) list.push_back(url.data());
    list.push_back(nullptr);
    result = sd_bus_message_append_strv(call.get(), list.data());
  }
  if (result >= 0) result = sd_bus_message_append(call.get(), "a{sv}", 0);
  if (result < 0) return describe(result);
  sd_bus_error error{};
  result = sd_bus_call(bus, call.get(), 0, &error, nullptr);
  Error words = describe(result);
  if (words && error.message != nullptr) words = error.message;
  sd_bus_error_free(&error);
  return words;
}

}  // namespace

std::optional<std::string> launchDesktopEntry(const DesktopEntry& entry,
                                              const std::vector<std::string>& urls) {
  if (const std::optional<std::string> name = entry.busName()) {
    sd_bus* bus = nullptr;
    const int result = sd_bus_open_user(&bus);
    const Bus owner(bus);
    if (result >= 0) return startByBus(bus, *name, urls);
  }
  return startAsProcess(entry, urls);
}

std::optional<std::string> launchSuccessor(const std::string& path) {
  std::string program = path;
  std::array<char*, 2> arguments{program.data(), nullptr};
  const std::unique_ptr<char*, GlibRelease> environment(
      g_environ_setenv(g_get_environ(), successorMark, "1", TRUE));
  GError* error = nullptr;
  g_spawn_async(nullptr, arguments.data(), environment.get(), G_SPAWN_DEFAULT, detach, nullptr,
                nullptr, &error);
  if (error == nullptr) return std::nullopt;
  return GlibError(error)->message;
}

}  // namespace talmo
