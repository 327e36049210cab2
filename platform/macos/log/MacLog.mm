#include "platform/macos/log/MacLog.h"

#include "support/LogLine.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

os_log_type_t type(LogLevel level) {
  switch (level) {
    case LogLevel::debug:
      return OS_LOG_TYPE_DEBUG;
    case LogLevel::info:
      return OS_LOG_TYPE_INFO;
    case LogLevel::notice:
      return OS_LOG_TYPE_DEFAULT;
    case LogLevel::error:
      return OS_LOG_TYPE_ERROR;
  }
  return OS_LOG_TYPE_DEFAULT;
}

}  // namespace

void MacLog::write(LogLevel level, std::string_view subsystem, std::string_view category,
                   std::string_view message) {
  const os_log_t log = logOf(subsystem, category);
  const os_log_type_t logType = type(level);
  if (!os_log_type_enabled(log, logType)) return;
  const std::string line = oneLogLine(message);
  os_log_with_type(log, logType, "%{public}s", line.c_str());
}

os_log_t MacLog::logOf(std::string_view subsystem, std::string_view category) {
  const MutexLock lock(mutex_);
  auto& log = logs_[{std::string(subsystem), std::string(category)}];
  if (log == nil)
    log = os_log_create(std::string(subsystem).c_str(), std::string(category).c_str());
  return log;
}

}  // namespace talmo
