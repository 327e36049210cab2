#pragma once

#include <map>
#include <os/log.h>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Log.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The unified log. A message is one public argument; of one that is longer than about a kilobyte,
/// the system keeps the beginning. Any thread.
class MacLog : public Log {
 public:
  void write(LogLevel level, std::string_view subsystem, std::string_view category,
             std::string_view message) override;

 private:
  os_log_t logOf(std::string_view subsystem, std::string_view category);

  Mutex mutex_;
  /// By subsystem and category.
  std::map<std::pair<std::string, std::string>, os_log_t> logs_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
