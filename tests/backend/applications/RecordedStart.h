#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace talmo::test {

/// What talmo-recorded-start wrote about its start. Its process is ended with the object.
class RecordedStart {
 public:
  /// The file of the program, which writes to the file that its first argument names.
  static std::string program();

  /// Waits for the file. Throws when it does not come.
  explicit RecordedStart(const std::filesystem::path& file);
  ~RecordedStart();
  RecordedStart(const RecordedStart&) = delete;
  RecordedStart& operator=(const RecordedStart&) = delete;

  /// Ends the process and waits until it is gone, so that nobody has its status to fetch.
  void end();

  std::vector<std::string> arguments;
  pid_t process = 0;
  pid_t parent = 0;
  pid_t session = 0;
  std::map<std::string, std::string> descriptors;
  std::vector<int> blockedSignals;
};

}  // namespace talmo::test
