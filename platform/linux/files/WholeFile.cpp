#include "platform/linux/files/WholeFile.h"

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <system_error>
#include <time.h>
#include <unistd.h>

#include <glib.h>
#include <glib/gstdio.h>

#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/FileDescriptor.h"

namespace talmo {
namespace {

// What the kernel follows as well (path_resolution(7)).
constexpr int longestLinkChain = 40;

constexpr const char* notRegular = "it is not a regular file";

// A thousand damaged files in one second are no accident.
constexpr int mostNames = 1000;

std::string errorText(int error) {
  return std::generic_category().message(error);
}

std::string utcTime() {
  const time_t now = ::time(nullptr);
  tm utc{};
  ::gmtime_r(&now, &utc);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &utc)};
}

/// Renames without replacing what is there. 0 or the error.
int renameToFree(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system without that operation.
  struct stat status{};
  if (::lstat(to.c_str(), &status) == 0) return EEXIST;
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

WholeFile::Content WholeFile::read(std::size_t limit) const {
  const FileDescriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file) {
    if (errno == ENOENT) return {};
    return {.failure = errorText(errno)};
  }
  struct stat status{};
  if (::fstat(file.get(), &status) != 0) return {.failure = errorText(errno)};
  if (!S_ISREG(status.st_mode)) return {.failure = notRegular};
  std::string text;
  while (text.size() <= limit) {
    std::array<char, 16384> buffer{};
    const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return {.failure = errorText(errno)};
    if (count == 0) return {.text = std::move(text)};
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return {.failure = "it is too large"};
}

std::optional<std::filesystem::path> WholeFile::putAside() const {
  const std::filesystem::path file = resolved();
  struct stat status{};
  if (::lstat(file.c_str(), &status) != 0) return std::nullopt;
  // A device or a folder that a link leads to was not made for us.
  const bool isOurs = S_ISREG(status.st_mode) || (S_ISDIR(status.st_mode) && file == path_);
  if (!isOurs) return std::nullopt;
  const std::string base = file.string() + ".damaged-" + utcTime();
  for (int number = 1; number <= mostNames; ++number) {
    const std::string target = number == 1 ? base : base + "-" + std::to_string(number);
    const int error = renameToFree(file, target);
    if (error == 0) return std::filesystem::path(target);
    if (error != EEXIST) return std::nullopt;
  }
  return std::nullopt;
}

std::optional<std::string> WholeFile::write(const std::string& text) const {
  const std::filesystem::path file = resolved();
  struct stat status{};
  // A device that a link leads to is not to be replaced, not even by the administrator.
  if (::lstat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) return notRegular;
  if (::g_mkdir_with_parents(path_.parent_path().c_str(), S_IRWXU) != 0) return errorText(errno);
  GError* raised = nullptr;
  constexpr auto flags = static_cast<GFileSetContentsFlags>(G_FILE_SET_CONTENTS_CONSISTENT |
                                                            G_FILE_SET_CONTENTS_DURABLE);
  if (::g_file_set_contents_full(file.c_str(), text.data(), static_cast<gssize>(text.size()), flags,
                                 S_IRUSR | S_IWUSR, &raised) != 0) {
    return std::nullopt;
  }
  const GlibError error(raised);
  return std::string(error->message);
}

std::filesystem::path WholeFile::resolved() const {
  std::filesystem::path file = path_;
  std::error_code error;
  for (int link = 0; link < longestLinkChain; ++link) {
    const std::filesystem::path target = std::filesystem::read_symlink(file, error);
    if (error) break;
    file = file.parent_path() / target;
  }
  return file;
}

}  // namespace talmo
