#include "platform/linux/applications/OpenedApplications.h"

#include <chrono>
#include <cstddef>

#include <nlohmann/json.hpp>

#include "platform/linux/applications/UnixTime.h"
#include "platform/linux/files/BaseFolders.h"
#include "platform/linux/files/WholeFile.h"
#include "support/Logger.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr Logger log("workspace");

// A thousand times what the players that the program knows need.
constexpr std::size_t longestFile = std::size_t{1} << 20U;

}  // namespace

std::filesystem::path OpenedApplications::standardFile() {
  return stateHome() / "talmo" / "opened-applications.json";
}

void OpenedApplications::remember(const std::string& id, Date when) {
  const MutexLock lock(mutex_);
  std::map<std::string, std::int64_t> opened = read();
  opened[id] = std::chrono::floor<std::chrono::seconds>(when.time_since_epoch()).count();
  const std::string text =
      nlohmann::json(opened).dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
  if (const std::optional<std::string> failure = WholeFile(file_).write(text)) {
    log.notice("cannot remember that %{public}s was opened: %{public}s", id, *failure);
  }
}

std::optional<Date> OpenedApplications::lastOpened(const std::string& id) const {
  const MutexLock lock(mutex_);
  const std::map<std::string, std::int64_t> opened = read();
  const auto found = opened.find(id);
  if (found == opened.end()) return std::nullopt;
  return dateOfUnixTime(found->second);
}

std::map<std::string, std::int64_t> OpenedApplications::read() const {
  const std::optional<std::string> text = WholeFile(file_).read(longestFile).text;
  if (!text) return {};
  const nlohmann::json json = nlohmann::json::parse(*text, nullptr, false);
  if (!json.is_object()) return {};
  std::map<std::string, std::int64_t> opened;
  for (const auto& [id, seconds] : json.items()) {
    if (seconds.is_number_integer()) opened[id] = seconds.get<std::int64_t>();
  }
  return opened;
}

}  // namespace talmo
