#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "platform/UserDefaults.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Settings in memory. Any thread.
class SimulatedUserDefaults : public UserDefaults {
 public:
  /// What survives a restart of the program: a second platform that is given the same store reads
  /// what the first one wrote.
  struct Store {
    Mutex mutex;
    std::map<std::string, std::variant<std::string, bool>> values TALMO_GUARDED_BY(mutex);
  };

  explicit SimulatedUserDefaults(std::shared_ptr<Store> store) : store_(std::move(store)) {}

  std::optional<std::string> string(const std::string& key) const override;
  void setString(const std::string& key, const std::optional<std::string>& value) override;
  bool boolean(const std::string& key) const override;
  void setBoolean(const std::string& key, bool value) override;

  /// Whether anything at all is stored under the key.
  bool contains(const std::string& key) const;

 private:
  const std::shared_ptr<Store> store_;
};

}  // namespace talmo
