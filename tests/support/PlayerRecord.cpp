#include "tests/support/PlayerRecord.h"

#include <algorithm>
#include <ranges>
#include <sstream>
#include <utility>

namespace talmo::test {

PlayerRecord::PlayerRecord(std::filesystem::path file) : file_(std::move(file)) {
  std::ofstream(file_, std::ios::trunc);
  stream_.open(file_);
}

const std::vector<PlayerRecord::Command>& PlayerRecord::commands() {
  read();
  return commands_;
}

pid_t PlayerRecord::lastStarted(const std::string& player) {
  read();
  const auto newestFirst = starts_ | std::views::reverse;
  const auto found = std::ranges::find(newestFirst, player, &Command::player);
  return found == newestFirst.end() ? 0 : found->pid;
}

void PlayerRecord::read() {
  for (std::string line; std::getline(stream_, line);) {
    partOfLine_ += line;
    // The end of the file, not of a line.
    if (stream_.eof()) break;
    std::istringstream words(std::exchange(partOfLine_, {}));
    Command command;
    words >> command.player >> command.pid >> command.method;
    (command.method == "ready" ? starts_ : commands_).push_back(std::move(command));
  }
  stream_.clear();
}

}  // namespace talmo::test
