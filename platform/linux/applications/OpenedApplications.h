#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// When this program last opened which application, for the times when the desktop keeps no such
/// record. A file of the program's own, with a JSON object of desktop entries' ids and seconds
/// since 1970; it is read, and replaced as a whole, at every call. Any thread, with one object per
/// file.
class OpenedApplications {
 public:
  /// `file` need not exist, nor its folder.
  explicit OpenedApplications(std::filesystem::path file) : file_(std::move(file)) {}

  /// talmo/opened-applications.json in the `stateHome`. Reads the environment.
  static std::filesystem::path standardFile();

  /// What cannot be stored is logged and forgotten. A damaged file is begun anew.
  void remember(const std::string& id, Date when);

  /// To the second; nothing for an application that was never opened, and without a readable file.
  std::optional<Date> lastOpened(const std::string& id) const;

 private:
  /// Seconds by desktop id.
  std::map<std::string, std::int64_t> read() const TALMO_REQUIRES(mutex_);

  const std::filesystem::path file_;
  mutable Mutex mutex_;
};

}  // namespace talmo
