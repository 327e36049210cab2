#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Log.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"
#include "tests/support/LogLine.h"

namespace talmo::test {

/// A log that keeps its lines, in the order of writing. Any thread.
class RecordingLog : public Log {
 public:
  void write(LogLevel level, std::string_view subsystem, std::string_view category,
             std::string_view message) override {
    const MutexLock lock(mutex_);
    lines_.push_back({level, std::string(subsystem), std::string(category), std::string(message)});
  }

  std::vector<LogLine> lines() const {
    const MutexLock lock(mutex_);
    return lines_;
  }

  /// The messages of one level.
  std::vector<std::string> messages(LogLevel level) const {
    const MutexLock lock(mutex_);
    std::vector<std::string> found;
    for (const LogLine& line : lines_) {
      if (line.level == level) found.push_back(line.message);
    }
    return found;
  }

  /// Whether a line of any level contains `text`.
  bool contains(std::string_view text) const {
    const MutexLock lock(mutex_);
    return std::any_of(lines_.begin(), lines_.end(), [text](const LogLine& line) {
      return line.message.find(text) != std::string::npos;
    });
  }

 private:
  mutable Mutex mutex_;
  std::vector<LogLine> lines_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo::test
