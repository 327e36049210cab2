#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ProcessIdentifier.h"

namespace talmo {

/// What /proc says of the processes of this user. Any thread; what is gone or hidden is absent.
class ProcessTable {
 public:
  ProcessTable() = delete;

  /// The processes of this user.
  static std::vector<ProcessIdentifier> all();

  /// The path of the program that the process runs; empty when that cannot be seen.
  static std::string executable(ProcessIdentifier process);

  /// What the process was started with, its own name first; empty when that cannot be seen. A
  /// process may write over it.
  static std::vector<std::string> arguments(ProcessIdentifier process);

  /// What a variable of its environment was when the process started; nothing when it was not there
  /// or cannot be seen. A process may write over it.
  static std::optional<std::string> environment(ProcessIdentifier process, std::string_view name);

  /// The folder that the process works in; empty when that cannot be seen.
  static std::string workingFolder(ProcessIdentifier process);

  /// Whether there is such a process and it is this user's.
  static bool isOurs(ProcessIdentifier process);

  /// The process that started this one, or that took it over; 0 when there is none.
  static ProcessIdentifier parent(ProcessIdentifier process);

  /// The processes of this user that run a program at a path that is `meant`. Where no process
  /// does, those that go by such a path or file name: a script, or a program that its wrapper
  /// renamed. Processes that another of them started are its helpers and are left out.
  static std::vector<ProcessIdentifier> running(
      const std::function<bool(std::string_view path)>& meant);

  /// Sorts by the time of the processes' start, oldest first; those that are gone come last.
  static void sortByAge(std::vector<ProcessIdentifier>& processes);
};

}  // namespace talmo
