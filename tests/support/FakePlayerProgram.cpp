// talmo-fake-player NAME [--hang | --error | --wrong-types] [--status STATUS] [--record FILE]
//
// A fake player with a process of its own. NAME is what follows "org.mpris.MediaPlayer2." in its
// bus name. It writes "ready" when it is on the bus, and for each command the nanoseconds of the
// monotonic clock and the method's name. It appends the same to FILE, which several players may
// share, as NAME, its process id and "ready" or the method's name. It ends on SIGTERM, on SIGINT
// and, unless it hangs, with its bus.
#include <chrono>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "tests/support/FakePlayer.h"

namespace {

using talmo::test::FakePlayer;

int usage() {
  std::cerr << "usage: talmo-fake-player NAME [--hang | --error | --wrong-types]"
               " [--status STATUS] [--record FILE]\n";
  return 2;
}

void print(const std::string& command) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  std::cout << std::chrono::nanoseconds(now).count() << ' ' << command << '\n' << std::flush;
}

/// Adds a line to the record; whole lines, whoever else writes to it.
void append(int record, std::string_view name, const std::string& what) {
  if (record < 0) return;
  const std::string line = std::string(name) + ' ' + std::to_string(::getpid()) + ' ' + what + '\n';
  if (::write(record, line.data(), line.size()) < 0) std::cerr << "cannot write the record\n";
}

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string_view> arguments(values + 1, values + count);
  if (arguments.empty()) return usage();
  int record = -1;
  FakePlayer::Start start{.name = std::string(arguments[0]),
                          .endsWithBus = true,
                          .onCommand = [&](const std::string& command) {
                            append(record, arguments[0], command);
                            print(command);
                          }};
  for (std::size_t index = 1; index < arguments.size(); ++index) {
    if (arguments[index] == "--hang") {
      start.behaviour = FakePlayer::Behaviour::hangs;
    } else if (arguments[index] == "--error") {
      start.behaviour = FakePlayer::Behaviour::fails;
    } else if (arguments[index] == "--wrong-types") {
      start.behaviour = FakePlayer::Behaviour::answersWithWrongTypes;
    } else if (arguments[index] == "--status" && index + 1 < arguments.size()) {
      start.playbackStatus = arguments[++index];
    } else if (arguments[index] == "--record" && index + 1 < arguments.size()) {
      record = ::open(arguments[++index].data(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
      if (record < 0) return usage();
    } else {
      return usage();
    }
  }
  // Blocked before the player's thread starts, so that they wait for `sigwait`.
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGINT);
  pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  try {
    const FakePlayer player(std::move(start));
    append(record, arguments[0], "ready");
    std::cout << "ready\n" << std::flush;
    int signal = 0;
    sigwait(&ends, &signal);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
