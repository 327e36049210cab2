// talmo-show
//
// Shows Talmo at work on a private desktop: real players, a real browser, real key presses through
// the X server. Prints what is pressed, what Talmo logs, what the player does and what Talmo's
// helper sees of it. Ends with 0 only if every press did to the player what the key says, and with
// pictures of the desktop beside the program.
#include <exception>
#include <iostream>

#include "tests/desktop/show/PlayerRounds.h"
#include "tests/desktop/show/ShowDesktop.h"
#include "tests/desktop/show/WebRound.h"

namespace talmo::test {
namespace {

bool run() {
  ShowDesktop show;
  bool good = PlayerRounds(show).run();
  good = runWebRound(show) && good;
  return good;
}

}  // namespace
}  // namespace talmo::test

int main() {
  talmo::test::stopShowAtInterruption();
  try {
    const bool good = talmo::test::run();
    std::cout << (good
                      ? "\nEvery player paused, resumed and skipped at the press of a key, and the "
                        "helper saw it.\n"
                      : "\nNot everything went as it should.\n");
    return good ? 0 : 1;
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << "talmo-show: " << error.what() << '\n';
    return 1;
  }
}
