#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Log.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// A log that keeps its lines. Any thread.
class SimulatedLog : public Log {
 public:
  struct Line {
    LogLevel level;
    std::string subsystem;
    std::string category;
    std::string message;

    bool operator==(const Line&) const = default;
  };

  void write(LogLevel level, std::string_view subsystem, std::string_view category,
             std::string_view message) override {
    const MutexLock lock(mutex_);
    lines_.push_back({level, std::string(subsystem), std::string(category), std::string(message)});
  }

  std::vector<Line> lines() const {
    const MutexLock lock(mutex_);
    return lines_;
  }

  /// The messages of one category, in order.
  std::vector<std::string> messages(std::string_view category) const {
    const MutexLock lock(mutex_);
    std::vector<std::string> found;
    for (const Line& line : lines_) {
      if (line.category == category) found.push_back(line.message);
    }
    return found;
  }

  /// The messages of one level, in order.
  std::vector<std::string> messages(LogLevel level) const {
    const MutexLock lock(mutex_);
    std::vector<std::string> found;
    for (const Line& line : lines_) {
      if (line.level == level) found.push_back(line.message);
    }
    return found;
  }

  /// Whether a line of any level holds `text`.
  bool contains(std::string_view text) const {
    const MutexLock lock(mutex_);
    return std::ranges::any_of(
        lines_, [text](const Line& line) { return line.message.find(text) != std::string::npos; });
  }

 private:
  mutable Mutex mutex_;
  std::vector<Line> lines_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
