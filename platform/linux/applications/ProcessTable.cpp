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

/// What is there of a file; nothing when its process has ended. A process may also end between the
/// opening and the reading, which then fails: the stream's own operators take the exception that
/// its buffer throws.
std::string contents(const std::string& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return std::move(text).str();
}

/// Where a symbolic link leads; empty when that cannot be seen.
std::string target(const std::string& link) {
  std::array<char, PATH_MAX> bytes{};
  const ssize_t length = ::readlink(link.c_str(), bytes.data(), bytes.size());
  return length <= 0 ? std::string() : std::string(bytes.data(), static_cast<std::size_t>(length));
}

/// The texts of a file that ends each with a zero byte.
std::vector<std::string> texts(const std::string& path) {
  std::istringstream stream(contents(path));
  std::vector<std::string> found;
  for (std::string text; std::getline(stream, text, '\0');) found.push_back(text);
  return found;
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

/// Whether the process calls itself by what is meant: the first of its arguments, or the kernel's
/// name for it, which for a script is the script's.
bool goesBy(ProcessIdentifier process, const std::function<bool(std::string_view)>& meant) {
  // Empty for a process that has ended and whose parent has not asked for its status yet.
  const std::vector<std::string> arguments = ProcessTable::arguments(process);
  if (arguments.empty()) return false;
  if (meant(arguments.front())) return true;
  std::string name = contents(pathOf(process, "comm"));
  if (name.ends_with('\n')) name.pop_back();
  return meant(name);
}

}  // namespace

std::vector<ProcessIdentifier> ProcessTable::all() {
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

std::string ProcessTable::executable(ProcessIdentifier process) {
  std::string path = target(pathOf(process, "exe"));
  // What the kernel adds when the file was replaced, by an update for one.
  constexpr std::string_view deleted = " (deleted)";
  if (path.ends_with(deleted)) path.resize(path.size() - deleted.size());
  return path;
}

std::vector<std::string> ProcessTable::arguments(ProcessIdentifier process) {
  std::vector<std::string> found = texts(pathOf(process, "cmdline"));
  // A process that writes over its command line leaves the rest of it empty.
  while (!found.empty() && found.back().empty()) found.pop_back();
  return found;
}

std::optional<std::string> ProcessTable::environment(ProcessIdentifier process,
                                                     std::string_view name) {
  for (const std::string& entry : texts(pathOf(process, "environ"))) {
    const std::size_t end = entry.find('=');
    if (end != std::string::npos && std::string_view(entry).substr(0, end) == name) {
      return entry.substr(end + 1);
    }
  }
  return std::nullopt;
}

std::string ProcessTable::workingFolder(ProcessIdentifier process) {
  return target(pathOf(process, "cwd"));
}

bool ProcessTable::isOurs(ProcessIdentifier process) {
  struct stat status{};
  return process > 0 && ::stat(pathOf(process, "").c_str(), &status) == 0 &&
         status.st_uid == ::geteuid();
}

ProcessIdentifier ProcessTable::parent(ProcessIdentifier process) {
  return statusOf(process).parent;
}

std::vector<ProcessIdentifier> ProcessTable::running(
    const std::function<bool(std::string_view path)>& meant) {
  const std::vector<ProcessIdentifier> ours = all();
  std::vector<ProcessIdentifier> found;
  std::ranges::copy_if(ours, std::back_inserter(found),
                       [&](ProcessIdentifier process) { return meant(executable(process)); });
  if (found.empty()) {
    std::ranges::copy_if(ours, std::back_inserter(found),
                         [&](ProcessIdentifier process) { return goesBy(process, meant); });
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
