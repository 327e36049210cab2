#include "platform/linux/mediasession/SessionRecord.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/FileDescriptor.h"

namespace talmo {
namespace {

constexpr const char* folderName = "talmo";
constexpr const char* fileName = "media-session";
constexpr std::string_view heading = "talmo media session 1";
constexpr std::string_view playing = "playing ";
constexpr std::string_view quiet = "quiet ";
// Far more than any order that was written.
constexpr std::size_t largestFile = 65536;

bool isOurs(const struct stat& status) {
  return status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// Our folder within the runtime folder, if nobody else can write there.
FileDescriptor openFolder(const std::filesystem::path& runtimeFolder) {
  if (!runtimeFolder.is_absolute()) return {};
  const std::filesystem::path path = runtimeFolder / folderName;
  FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status{};
  if (!folder || ::fstat(folder.get(), &status) != 0 || !isOurs(status)) return {};
  return folder;
}

std::optional<std::string> contents(const FileDescriptor& folder) {
  const FileDescriptor file(
      ::openat(folder.get(), fileName, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status{};
  if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) || !isOurs(status)) {
    return std::nullopt;
  }
  std::string text;
  while (text.size() <= largestFile) {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

bool writeAll(const FileDescriptor& file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file.get(), text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::optional<SessionOrder::Entry> parseEntry(std::string_view line) {
  SessionOrder::Entry entry;
  if (line.starts_with(playing)) {
    line.remove_prefix(playing.size());
    entry.wasPlaying = true;
  } else if (line.starts_with(quiet)) {
    line.remove_prefix(quiet.size());
  } else {
    return std::nullopt;
  }
  // Every unique name begins with a colon.
  if (!line.starts_with(':')) return std::nullopt;
  entry.name = line;
  return entry;
}

}  // namespace

SessionRecord SessionRecord::standard() {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  return SessionRecord(folder == nullptr ? "" : folder);
}

std::optional<SessionOrder> SessionRecord::read(const std::string& busId) const {
  const FileDescriptor folder = openFolder(runtimeFolder_);
  if (!folder) return std::nullopt;
  const std::optional<std::string> text = contents(folder);
  if (!text || !text->ends_with('\n')) return std::nullopt;
  std::istringstream lines(*text);
  std::string line;
  if (!std::getline(lines, line) || line != heading) return std::nullopt;
  if (!std::getline(lines, line) || line != busId) return std::nullopt;
  SessionOrder order;
  while (std::getline(lines, line)) {
    std::optional<SessionOrder::Entry> entry = parseEntry(line);
    if (!entry) return std::nullopt;
    order.entries.push_back(std::move(*entry));
  }
  return order;
}

bool SessionRecord::write(const std::string& busId, const SessionOrder& order) const {
  ::mkdir((runtimeFolder_ / folderName).c_str(), S_IRWXU);
  const FileDescriptor folder = openFolder(runtimeFolder_);
  if (!folder) return false;
  std::ostringstream text;
  text << heading << '\n' << busId << '\n';
  for (const SessionOrder::Entry& entry : order.entries) {
    text << (entry.wasPlaying ? playing : quiet) << entry.name << '\n';
  }
  // A thread's own name for the draft; one that is there was left behind by a process that has
  // gone.
  const std::string draft = "." + std::string(fileName) + "-" + std::to_string(::gettid());
  ::unlinkat(folder.get(), draft.c_str(), 0);
  const FileDescriptor file(::openat(folder.get(), draft.c_str(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                     S_IRUSR | S_IWUSR));
  if (file && writeAll(file, text.str()) &&
      ::renameat(folder.get(), draft.c_str(), folder.get(), fileName) == 0) {
    return true;
  }
  ::unlinkat(folder.get(), draft.c_str(), 0);
  return false;
}

}  // namespace talmo
