#include "platform/linux/applications/ProcessTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <cstdint>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace talmo {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};

/// The fields of /proc/PID/stat (proc(5)) that are asked for.
struct Status {
  ProcessIdentifier parent = 0;
  /// In clock ticks since the machine's start.
  std::uint64_t startTime = std::numeric_limits<std::uint64_t>::max();
};

std::string pathOf(ProcessIdentifier process, const char* file) {
  return "/proc/" + std::to_string(process) + "/" + file;
}

std::string contents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string_view fileName(std::string_view path) {
  // npos + 1 is 0: a text without a slash is a file name.
  return path.substr(path.rfind('/') + 1);
}

Status statusOf(ProcessIdentifier process) {
  const std::string text = contents(pathOf(process, "stat"));
  // The second field is the name in parentheses, which may hold anything, parentheses too.
  const std::size_t end = text.rfind(')');
  if (end == std::string::npos) return {};
  std::istringstream rest(text.substr(end + 1));
  Status status;
  std::string skipped;
  rest >> skipped >> status.parent;  // fields 3 and 4
  for (int field = 5; field < 22; ++field) rest >> skipped;
  rest >> status.startTime;
  return status;
}

bool contains(const std::vector<std::string_view>& names, std::string_view name) {
  return !name.empty() && std::ranges::find(names, name) != names.end();
}

/// Whether the process calls itself by one of the names: the kernel's name for it, which for a
/// script is the script's, or the first of its arguments.
bool goesBy(ProcessIdentifier process, const std::vector<std::string_view>& names) {
  // Empty for a process that has ended and whose parent has not asked for its status yet.
  const std::string arguments = contents(pathOf(process, "cmdline"));
  if (arguments.empty()) return false;
  if (contains(names, fileName(std::string_view(arguments).substr(0, arguments.find('\0')))))
    return true;
  std::string name = contents(pathOf(process, "comm"));
  if (name.ends_with('\n')) name.pop_back();
  return contains(names, name);
}

std::vector<ProcessIdentifier> processesOfThisUser() {
  std::vector<ProcessIdentifier> processes;
  const std::unique_ptr<DIR, CloseFolder> folder(::opendir("/proc"));
  if (!folder) return processes;
  while (const dirent* entry = ::readdir(folder.get())) {
    const std::string_view name(entry->d_name);
    ProcessIdentifier process = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    if (error != std::errc() || end != name.data() + name.size()) continue;
    struct stat status{};
    if (::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) != 0) continue;
    if (status.st_uid == ::geteuid()) processes.push_back(process);
  }
  return processes;
}

}  // namespace

std::string ProcessTable::executable(ProcessIdentifier process) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink(pathOf(process, "exe").c_str(), target.data(), target.size());
  if (length <= 0) return {};
  std::string_view path(target.data(), static_cast<std::size_t>(length));
  // What the kernel adds when the file was replaced, by an update for one.
  constexpr std::string_view deleted = " (deleted)";
  if (path.ends_with(deleted)) path.remove_suffix(deleted.size());
  return std::string(fileName(path));
}

bool ProcessTable::isOurs(ProcessIdentifier process) {
  struct stat status{};
  return process > 0 && ::stat(pathOf(process, "").c_str(), &status) == 0 &&
         status.st_uid == ::geteuid();
}

ProcessIdentifier ProcessTable::parent(ProcessIdentifier process) {
  return statusOf(process).parent;
}

std::vector<ProcessIdentifier> ProcessTable::running(const std::vector<std::string_view>& names) {
  const std::vector<ProcessIdentifier> all = processesOfThisUser();
  std::vector<ProcessIdentifier> found;
  std::ranges::copy_if(all, std::back_inserter(found), [&](ProcessIdentifier process) {
    return contains(names, executable(process));
  });
  if (found.empty()) {
    std::ranges::copy_if(all, std::back_inserter(found),
                         [&](ProcessIdentifier process) { return goesBy(process, names); });
  }
  std::vector<ProcessIdentifier> leaders;
  std::ranges::copy_if(found, std::back_inserter(leaders), [&](ProcessIdentifier process) {
    return std::ranges::find(found, statusOf(process).parent) == found.end();
  });
  return leaders;
}

void ProcessTable::sortByAge(std::vector<ProcessIdentifier>& processes) {
  std::vector<std::pair<std::uint64_t, ProcessIdentifier>> aged;
  aged.reserve(processes.size());
  for (const ProcessIdentifier process : processes) {
    aged.emplace_back(statusOf(process).startTime, process);
  }
  std::ranges::sort(aged);
  std::ranges::transform(aged, processes.begin(), [](const auto& one) { return one.second; });
}

}  // namespace talmo
