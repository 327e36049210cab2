#include "platform/linux/applications/RecentlyUsed.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>

#include "platform/linux/applications/GlibHandles.h"

namespace talmo {
namespace {

/// The file name of the program in a registered command line, which names a program and then what
/// becomes of the file: "vlc %u".
std::string programOf(const char* commandLine) {
  int count = 0;
  char** arguments = nullptr;
  if (g_shell_parse_argv(commandLine, &count, &arguments, nullptr) == FALSE) return {};
  const std::unique_ptr<char*, GlibRelease> owner(arguments);
  const std::string path(arguments[0]);
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

std::optional<Date> lastUse(const DesktopEntry& entry) {
  const std::unique_ptr<GBookmarkFile, GlibRelease> list(g_bookmark_file_new());
  const std::string path = std::string(g_get_user_data_dir()) + "/recently-used.xbel";
  if (g_bookmark_file_load_from_file(list.get(), path.c_str(), nullptr) == FALSE) {
    return std::nullopt;
  }
  const std::string name = entry.name();
  const std::string program = entry.executable();
  std::optional<Date> latest;
  const std::unique_ptr<char*, GlibRelease> files(g_bookmark_file_get_uris(list.get(), nullptr));
  for (char** file = files.get(); *file != nullptr; ++file) {
    const std::unique_ptr<char*, GlibRelease> applications(
        g_bookmark_file_get_applications(list.get(), *file, nullptr, nullptr));
    if (!applications) continue;
    for (char** application = applications.get(); *application != nullptr; ++application) {
      char* command = nullptr;
      GDateTime* stamp = nullptr;
      if (g_bookmark_file_get_application_info(list.get(), *file, *application, &command, nullptr,
                                               &stamp, nullptr) == FALSE) {
        continue;
      }
      const GlibText owner(command);
      if (stamp == nullptr) continue;
      if (std::string_view(*application) != name && programOf(command) != program) continue;
      const Date date{std::chrono::seconds(g_date_time_to_unix(stamp)) +
                      std::chrono::microseconds(g_date_time_get_microsecond(stamp))};
      latest = std::max(latest.value_or(date), date);
    }
  }
  return latest;
}

}  // namespace talmo
