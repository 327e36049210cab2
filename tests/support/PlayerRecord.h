#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/types.h>
#include <vector>

namespace talmo::test {

/// What the fake players write that are started with "--record" and the same file: all commands, in
/// the order of their arrival, whichever player they came to and whoever started it. Reads each
/// line once, so that ten thousand do not take long.
class PlayerRecord {
 public:
  struct Command {
    std::string player;
    pid_t pid = 0;
    /// The method's name.
    std::string method;
  };

  /// Makes the file anew.
  explicit PlayerRecord(std::filesystem::path file);

  /// The options of a fake player that writes to it.
  std::vector<std::string> options() const { return {"--record", file_.string()}; }

  /// What has arrived so far.
  const std::vector<Command>& commands();

  /// The process of the player that was the last to come up under this name; 0 before one has.
  pid_t lastStarted(const std::string& player);

 private:
  void read();

  const std::filesystem::path file_;
  std::ifstream stream_;
  std::string partOfLine_;
  std::vector<Command> commands_;
  std::vector<Command> starts_;
};

}  // namespace talmo::test
