#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace talmo {

/// A small file that is read, or replaced, as a whole; bytes.
class WholeFile {
 public:
  /// What reading gave: the text, or the reason why there is none. Both are absent when there is no
  /// file.
  struct Content {
    std::optional<std::string> text;
    std::optional<std::string> failure;
  };

  explicit WholeFile(std::filesystem::path path) : path_(std::move(path)) {}

  /// Reads the whole file; a longer one than `limit` bytes, and what is no regular file, is a
  /// failure. Does not wait for a pipe.
  Content read(std::size_t limit) const;

  /// Renames the file to its name with ".damaged-" and the time, without replacing anything, and
  /// returns the new path; nothing when that is impossible or what stands there must not be moved.
  std::optional<std::filesystem::path> putAside() const;

  /// Replaces the file, or makes it and its folder, readable by the owner only. On return the file
  /// is safe on its disk. Returns the failure, if any; the old file is then untouched, and so is
  /// anything else that stands there.
  std::optional<std::string> write(const std::string& text) const;

 private:
  /// The file that the path leads to through symbolic links, which need not exist.
  std::filesystem::path resolved() const;

  const std::filesystem::path path_;
};

}  // namespace talmo
