#pragma once

#include <optional>
#include <string>

namespace talmo {

/// The person's settings: string and boolean values by key, kept across runs.
///
/// Called by `Preferences`, on any thread. Nothing here reports a failure: what cannot be read is
/// absent, what cannot be stored is logged by the backend and still read back until the process
/// ends.
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  /// The string stored under `key`; nothing when the key is absent or holds something else.
  virtual std::optional<std::string> string(const std::string& key) const = 0;

  /// Stores a string, or removes the key when there is none.
  virtual void setString(const std::string& key, const std::optional<std::string>& value) = 0;

  /// The boolean stored under `key`; false when the key is absent or holds something else.
  virtual bool boolean(const std::string& key) const = 0;

  virtual void setBoolean(const std::string& key, bool value) = 0;
};

}  // namespace talmo
