#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// What /proc says of the processes of this user. Any thread; what is gone or hidden is absent.
class ProcessTable {
 public:
  ProcessTable() = delete;

  /// The file name of the program that the process runs; empty when that cannot be seen.
  static std::string executable(ProcessIdentifier process);

  /// Whether there is such a process and it is this user's.
  static bool isOurs(ProcessIdentifier process);

  /// The process that started this one, or that took it over; 0 when there is none.
  static ProcessIdentifier parent(ProcessIdentifier process);

  /// The processes of this user that run a program of one of these file names. Where no process
  /// does, those that go by such a name: a script, or a program that its wrapper renamed. Processes
  /// that another of them started are its helpers and are left out.
  static std::vector<ProcessIdentifier> running(const std::vector<std::string_view>& names);

  /// Sorts by the time of the processes' start, oldest first; those that are gone come last.
  static void sortByAge(std::vector<ProcessIdentifier>& processes);
};

}  // namespace talmo
