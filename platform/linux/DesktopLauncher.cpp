#include "platform/linux/DesktopLauncher.h"

#include <csignal>
#include <unistd.h>

#include "platform/linux/GlibHandles.h"

namespace talmo {
namespace {

/// GIO's connection to the session bus while something is launched. GIO's own would end the process
/// when the bus goes away, and would stay open for good, as nobody here runs the main loop that its
/// answers come to; so there is a loop for the launch alone.
class LaunchScope {
 public:
  LaunchScope() : context_(g_main_context_new()) {
    g_main_context_push_thread_default(context_.get());
    bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus_) g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
  }
  ~LaunchScope() {
    if (bus_) g_dbus_connection_flush_sync(bus_.get(), nullptr, nullptr);
    while (g_main_context_iteration(context_.get(), FALSE) != FALSE) {
    }
    bus_.reset();
    g_main_context_pop_thread_default(context_.get());
  }
  LaunchScope(const LaunchScope&) = delete;
  LaunchScope& operator=(const LaunchScope&) = delete;

  bool hasBus() const { return bus_ != nullptr; }
  GMainContext* context() const { return context_.get(); }

 private:
  std::unique_ptr<GMainContext, GlibRelease> context_;
  GObjectHandle<GDBusConnection> bus_;
};

struct Outcome {
  bool isKnown = false;
  GlibError error;
};

void takeOutcome(GObject* info, GAsyncResult* result, gpointer data) {
  Outcome& outcome = *static_cast<Outcome*>(data);
  GError* error = nullptr;
  g_app_info_launch_uris_finish(G_APP_INFO(info), result, &error);
  outcome.error.reset(error);
  outcome.isKnown = true;
}

/// In the new process, where nothing may be called that is not safe after a fork.
void detach(gpointer) {
  ::setsid();
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

GlibError startByBus(const DesktopEntry& entry, GList* urls, GMainContext* context) {
  Outcome outcome;
  g_app_info_launch_uris_async(G_APP_INFO(entry.get()), urls, nullptr, nullptr, takeOutcome,
                               &outcome);
  while (!outcome.isKnown) g_main_context_iteration(context, TRUE);
  return std::move(outcome.error);
}

GlibError startAsProcess(const DesktopEntry& entry, GList* urls) {
  constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                  G_SPAWN_STDERR_TO_DEV_NULL);
  GError* error = nullptr;
  g_desktop_app_info_launch_uris_as_manager(entry.get(), urls, nullptr, flags, detach, nullptr,
                                            nullptr, nullptr, &error);
  return GlibError(error);
}

}  // namespace

std::optional<std::string> launchDesktopEntry(const DesktopEntry& entry,
                                              const std::vector<std::string>& urls) {
  GList* list = nullptr;
  for (const std::string& url : urls) list = g_list_append(list, g_strdup(url.c_str()));
  GlibError error;
  {
    const LaunchScope scope;
    const bool byBus =
        scope.hasBus() && g_desktop_app_info_get_boolean(entry.get(), "DBusActivatable") != FALSE;
    error = byBus ? startByBus(entry, list, scope.context()) : startAsProcess(entry, list);
  }
  g_list_free_full(list, g_free);
  if (error) return error->message;
  return std::nullopt;
}

}  // namespace talmo
