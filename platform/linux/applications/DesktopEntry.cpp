#include "platform/linux/applications/DesktopEntry.h"

#include <filesystem>
#include <utility>

namespace talmo {
namespace {

std::string orEmpty(const char* text) {
  return text == nullptr ? std::string() : std::string(text);
}

GDesktopAppInfo* asDesktopEntry(GAppInfo* info) {
  if (info == nullptr) return nullptr;
  if (G_IS_DESKTOP_APP_INFO(info)) return G_DESKTOP_APP_INFO(info);
  g_object_unref(info);
  return nullptr;
}

}  // namespace

std::optional<DesktopEntry> DesktopEntry::owning(GDesktopAppInfo* info) {
  if (info == nullptr) return std::nullopt;
  return DesktopEntry(info);
}

std::optional<DesktopEntry> DesktopEntry::withID(std::string_view id) {
  return owning(g_desktop_app_info_new((std::string(id) + ".desktop").c_str()));
}

std::optional<DesktopEntry> DesktopEntry::firstOf(const std::vector<std::string_view>& ids) {
  for (const std::string_view id : ids) {
    if (std::optional<DesktopEntry> entry = withID(id)) return entry;
  }
  return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntry::atURL(const std::string& url) {
  const GlibText path(g_filename_from_uri(url.c_str(), nullptr, nullptr));
  if (!path) return std::nullopt;
  return owning(g_desktop_app_info_new_from_filename(path.get()));
}

std::optional<DesktopEntry> DesktopEntry::defaultForURL(const std::string& url) {
  const GlibText scheme(g_uri_parse_scheme(url.c_str()));
  if (!scheme) return std::nullopt;
  if (std::string_view(scheme.get()) == "file") {
    const GObjectHandle<GFile> file(g_file_new_for_uri(url.c_str()));
    return owning(asDesktopEntry(g_file_query_default_handler(file.get(), nullptr, nullptr)));
  }
  return owning(asDesktopEntry(g_app_info_get_default_for_uri_scheme(scheme.get())));
}

std::optional<DesktopEntry> DesktopEntry::withWindowClass(std::string_view windowClass) {
  std::optional<DesktopEntry> found;
  GList* const all = g_app_info_get_all();
  for (const GList* item = all; item != nullptr; item = item->next) {
    // The list's own reference goes to the entry, or is given back.
    std::optional<DesktopEntry> entry = owning(asDesktopEntry(static_cast<GAppInfo*>(item->data)));
    if (found || !entry) continue;
    if (orEmpty(g_desktop_app_info_get_startup_wm_class(entry->get())) == windowClass) {
      found = std::move(entry);
    }
  }
  g_list_free(all);
  return found;
}

std::string DesktopEntry::id() const {
  std::string id = orEmpty(g_app_info_get_id(G_APP_INFO(info_.get())));
  constexpr std::string_view suffix = ".desktop";
  if (id.ends_with(suffix)) id.erase(id.size() - suffix.size());
  return id;
}

std::string DesktopEntry::url() const {
  const char* const path = g_desktop_app_info_get_filename(info_.get());
  if (path == nullptr) return {};
  const GlibText url(g_filename_to_uri(path, nullptr, nullptr));
  return orEmpty(url.get());
}

std::string DesktopEntry::name() const {
  return orEmpty(g_app_info_get_name(G_APP_INFO(info_.get())));
}

std::string DesktopEntry::iconName() const {
  const GlibText name(g_desktop_app_info_get_string(info_.get(), G_KEY_FILE_DESKTOP_KEY_ICON));
  return orEmpty(name.get());
}

std::optional<std::string> DesktopEntry::busName() const {
  if (g_desktop_app_info_get_boolean(info_.get(), "DBusActivatable") == FALSE) return std::nullopt;
  // The name of its file, whatever folder below the data folders that is in.
  const std::filesystem::path file(orEmpty(g_desktop_app_info_get_filename(info_.get())));
  std::string name = file.stem();
  if (g_dbus_is_name(name.c_str()) == FALSE) return std::nullopt;
  return name;
}

std::string DesktopEntry::executable() const {
  const std::string path = orEmpty(g_app_info_get_executable(G_APP_INFO(info_.get())));
  return path.substr(path.rfind('/') + 1);
}

}  // namespace talmo
