#include "platform/simulated/SimulatedUserDefaults.h"

#include "support/MutexLock.h"

namespace talmo {

std::optional<std::string> SimulatedUserDefaults::string(const std::string& key) const {
  const MutexLock lock(store_->mutex);
  const auto found = store_->values.find(key);
  if (found == store_->values.end()) return std::nullopt;
  const auto* value = std::get_if<std::string>(&found->second);
  return value != nullptr ? std::optional(*value) : std::nullopt;
}

void SimulatedUserDefaults::setString(const std::string& key,
                                      const std::optional<std::string>& value) {
  const MutexLock lock(store_->mutex);
  if (value) {
    store_->values[key] = *value;
  } else {
    store_->values.erase(key);
  }
}

bool SimulatedUserDefaults::boolean(const std::string& key) const {
  const MutexLock lock(store_->mutex);
  const auto found = store_->values.find(key);
  if (found == store_->values.end()) return false;
  const auto* value = std::get_if<bool>(&found->second);
  return value != nullptr && *value;
}

void SimulatedUserDefaults::setBoolean(const std::string& key, bool value) {
  const MutexLock lock(store_->mutex);
  store_->values[key] = value;
}

bool SimulatedUserDefaults::contains(const std::string& key) const {
  const MutexLock lock(store_->mutex);
  return store_->values.contains(key);
}

}  // namespace talmo
