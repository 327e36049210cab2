#include "tests/backend/applications/RecentFile.h"

#include <chrono>
#include <stdexcept>

#include "platform/linux/applications/GlibHandles.h"
#include "tests/backend/applications/PrivateData.h"

namespace talmo::test {

void addToRecentFiles(const RecentFile& file) {
  const std::string path = PrivateData::dataHome() / "recently-used.xbel";
  const std::unique_ptr<GBookmarkFile, GlibRelease> list(g_bookmark_file_new());
  g_bookmark_file_load_from_file(list.get(), path.c_str(), nullptr);
  const auto seconds =
      std::chrono::duration_cast<std::chrono::seconds>(file.when.time_since_epoch()).count();
  GDateTime* const stamp = g_date_time_new_from_unix_utc(seconds);
  const bool isSet = g_bookmark_file_set_application_info(
                         list.get(), file.url.c_str(), file.applicationName.c_str(),
                         file.command.c_str(), 1, stamp, nullptr) != FALSE;
  g_date_time_unref(stamp);
  if (!isSet || g_bookmark_file_to_file(list.get(), path.c_str(), nullptr) == FALSE) {
    throw std::runtime_error("cannot write " + path);
  }
}

}  // namespace talmo::test
