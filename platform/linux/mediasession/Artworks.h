#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>

namespace talmo {

/// The artwork of the track, from where its player says that it is: a regular file of this machine
/// ("file:") or the URL itself ("data:"). Nothing is fetched from elsewhere. Used on one thread.
class Artworks {
 public:
  /// The longest that is taken, in bytes. Base64 makes it 22 MiB, with which a line of the helper
  /// stays below the 32 MiB that its reader takes.
  static constexpr std::size_t largest = 16U << 20U;

  /// The bytes of the image file; null when there are none. The same object as the last time when
  /// they have not changed. Waits for the disk and for nothing else.
  std::shared_ptr<const std::string> read(const std::string& url);

 private:
  /// What tells one state of a file from the next: device, inode, size, and time of the last change
  /// in seconds and nanoseconds.
  using Stamp = std::tuple<std::uint64_t, std::uint64_t, std::int64_t, std::int64_t, std::int64_t>;

  std::shared_ptr<const std::string> readFile(const std::string& path);
  /// The object for these bytes.
  std::shared_ptr<const std::string> keep(std::optional<std::string> bytes);

  /// Where the bytes are from.
  std::string url_;
  std::optional<Stamp> stamp_;
  std::shared_ptr<const std::string> bytes_;
};

}  // namespace talmo
