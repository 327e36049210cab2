#include "platform/linux/applications/RecentlyUsed.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/UnixTime.h"
#include "platform/linux/files/WholeFile.h"

namespace talmo {
namespace {

// GTK keeps a thousand files at most (its gtkrecentmanager.c), of about a kilobyte each.
constexpr std::size_t longestList = std::size_t{8} << 20U;

/// The program in a registered command line, which names a program and then what becomes of the
/// file: "vlc %u".
std::string programOf(const char* commandLine) {
  int count = 0;
  char** arguments = nullptr;
  if (g_shell_parse_argv(commandLine, &count, &arguments, nullptr) == FALSE) return {};
  const std::unique_ptr<char*, GlibRelease> owner(arguments);
  return arguments[0];
}

/// Applications register under their name (GTK) or the id of their entry (KDE), or, in a sandbox,
/// with a program that the entry does not name.
bool isOf(const DesktopEntry& entry, std::string_view name, const char* commandLine) {
  if (name == entry.name() || name == entry.id()) return true;
  const LinuxApplication* program = LinuxApplications::withExecutable(programOf(commandLine));
  return program != nullptr &&
         std::ranges::find(program->desktopIDs, entry.id()) != program->desktopIDs.end();
}

}  // namespace

std::optional<Date> lastUseOfAFile(const DesktopEntry& entry) {
  const std::optional<std::string> text =
      WholeFile(std::string(g_get_user_data_dir()) + "/recently-used.xbel").read(longestList).text;
  if (!text) return std::nullopt;
  const std::unique_ptr<GBookmarkFile, GlibRelease> list(g_bookmark_file_new());
  if (g_bookmark_file_load_from_data(list.get(), text->data(), text->size(), nullptr) == FALSE) {
    return std::nullopt;
  }
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
      if (stamp == nullptr || !isOf(entry, *application, command)) continue;
      std::optional<Date> date = dateOfUnixTime(g_date_time_to_unix(stamp));
      if (date) *date += std::chrono::microseconds(g_date_time_get_microsecond(stamp));
      // An absent date is less than every other.
      latest = std::max(latest, date);
    }
  }
  return latest;
}

}  // namespace talmo
