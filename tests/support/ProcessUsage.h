#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <sys/types.h>

namespace talmo::test {

/// What a process uses of the machine, as the system says. Every function throws when the process
/// is gone.
class ProcessUsage {
 public:
  struct Thread {
    std::string name;
    /// How often it has gone to sleep so far, which is how often it woke up.
    double sleeps = 0;
  };

  explicit ProcessUsage(pid_t pid) : pid_(pid) {}

  /// All that is in memory for it, in kilobytes: what it has with others counts in full.
  double residentMemory() const;

  /// What it has written itself, its heap above all, in kilobytes. Unlike its share of the
  /// libraries this does not depend on who else runs.
  double ownMemory() const;

  /// How many descriptors it has open.
  std::size_t descriptors() const;

  /// Its threads by their numbers.
  std::map<pid_t, Thread> threads() const;

 private:
  std::string folder() const { return "/proc/" + std::to_string(pid_); }

  pid_t pid_;
};

}  // namespace talmo::test
