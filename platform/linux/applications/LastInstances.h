#pragma once

#include <map>
#include <string>
#include <string_view>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// Which of an application's instances took the last command, by bundle identifier and bus name: of
/// several that are equally good, the next command goes there too, so that what was paused is what
/// resumes. Any thread.
class LastInstances {
 public:
  /// The bus name; empty when there was no command so far.
  std::string of(std::string_view bundleID) const {
    const MutexLock lock(mutex_);
    const auto found = names_.find(bundleID);
    return found == names_.end() ? std::string() : found->second;
  }

  void set(std::string_view bundleID, std::string name) {
    const MutexLock lock(mutex_);
    names_.insert_or_assign(std::string(bundleID), std::move(name));
  }

 private:
  mutable Mutex mutex_;
  std::map<std::string, std::string, std::less<>> names_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
