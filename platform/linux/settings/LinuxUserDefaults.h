#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/UserDefaults.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The settings as one JSON object in a file, in UTF-8. It is read once, on first use, and written
/// through at every change, so that at any moment, power cuts included, the file is either the old
/// or the new one. What else stands in it, unknown keys and values of other types, is kept.
///
/// A file that cannot be read or is damaged is put aside, beside itself, and the settings begin
/// anew. Where that is impossible it is left as it is, and the settings live in memory only.
class LinuxUserDefaults : public UserDefaults {
 public:
  /// A larger file is damaged.
  static constexpr std::size_t longestFile = std::size_t{1} << 20U;

  /// `file` need not exist, nor its folder. A symbolic link is followed, not replaced.
  explicit LinuxUserDefaults(std::filesystem::path file);

  /// Where a person's settings are: talmo/settings.json in the `configHome`. Reads the environment.
  static std::filesystem::path standardFile();

  std::optional<std::string> string(const std::string& key) const override;
  void setString(const std::string& key, const std::optional<std::string>& value) override;
  bool boolean(const std::string& key) const override;
  void setBoolean(const std::string& key, bool value) override;

 private:
  // Keeps the order in which a person may have written the file.
  using Json = nlohmann::ordered_json;

  void readOnce() const TALMO_EXCLUDES(valuesLock_);
  /// Sets the key, or removes it when `value` is discarded, and stores the outcome.
  void change(const std::string& key, const Json& value) TALMO_EXCLUDES(writeLock_, valuesLock_);
  bool store(const std::string& text) const;

  const std::filesystem::path file_;
  mutable std::once_flag read_;

  // Held while a change is stored, so that changes reach the file in their order; readers do not
  // wait for it. Taken before `valuesLock_`.
  Mutex writeLock_;
  // The last change is in memory only.
  bool unsaved_ TALMO_GUARDED_BY(writeLock_) = false;

  mutable Mutex valuesLock_;
  mutable Json values_ TALMO_GUARDED_BY(valuesLock_) = Json::object();
  // There is a file that could be neither read nor put aside.
  mutable bool memoryOnly_ TALMO_GUARDED_BY(valuesLock_) = false;
};

}  // namespace talmo
