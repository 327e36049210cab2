#include "platform/linux/mediasession/Artworks.h"

#include <absl/strings/escaping.h>
#include <absl/strings/match.h>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/mediasession/UrlText.h"

namespace talmo {
namespace {

constexpr std::string_view dataScheme = "data:";

/// The bytes of a "data:" URL (RFC 2397): "data:[<mediatype>][;base64],<data>".
std::optional<std::string> dataOf(std::string_view url) {
  url.remove_prefix(dataScheme.size());
  const std::size_t comma = url.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const std::string_view header = url.substr(0, comma);
  const std::string_view body = url.substr(comma + 1);
  // Longer than the longest image with every byte escaped.
  if (body.size() > 3 * Artworks::largest) return std::nullopt;
  std::string data = percentDecoded(body);
  if (!absl::EndsWithIgnoreCase({header.data(), header.size()}, ";base64")) return data;
  std::string bytes;
  if (!absl::Base64Unescape(data, &bytes)) return std::nullopt;
  return bytes;
}

/// The whole file, if it is no longer than the largest.
std::optional<std::string> contents(const FileDescriptor& file, std::size_t expected) {
  // One more than expected, to see the end.
  std::string bytes(std::min(expected, Artworks::largest) + 1, '\0');
  std::size_t length = 0;
  while (true) {
    const ssize_t count = ::read(file.get(), bytes.data() + length, bytes.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length > Artworks::largest) return std::nullopt;
    if (length == bytes.size()) bytes.resize(std::min(2 * length, Artworks::largest + 1));
  }
  bytes.resize(length);
  return bytes;
}

}  // namespace

std::shared_ptr<const std::string> Artworks::read(const std::string& url) {
  if (absl::StartsWithIgnoreCase(url, {dataScheme.data(), dataScheme.size()})) {
    if (url == url_) return bytes_;
    stamp_.reset();
    std::shared_ptr<const std::string> bytes = keep(dataOf(url));
    url_ = url;
    return bytes;
  }
  const std::optional<std::string> path = filePathOf(url);
  if (!path) return nullptr;
  if (url != url_) stamp_.reset();
  url_ = url;
  return readFile(*path);
}

std::shared_ptr<const std::string> Artworks::readFile(const std::string& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status{};
  if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    stamp_.reset();
    return nullptr;
  }
  const Stamp stamp{status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
                    status.st_mtim.tv_nsec};
  if (stamp_ == stamp) return bytes_;
  stamp_ = stamp;
  if (status.st_size > static_cast<off_t>(largest)) return keep(std::nullopt);
  return keep(contents(file, static_cast<std::size_t>(status.st_size)));
}

std::shared_ptr<const std::string> Artworks::keep(std::optional<std::string> bytes) {
  if (!bytes || bytes->empty() || bytes->size() > largest) {
    bytes_ = nullptr;
  } else if (!bytes_ || *bytes_ != *bytes) {
    bytes_ = std::make_shared<const std::string>(std::move(*bytes));
  }
  return bytes_;
}

}  // namespace talmo
