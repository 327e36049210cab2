// talmo-show
//
// Shows Talmo at work on a private desktop: real players, a real browser, real key presses and
// clicks through the X server. Says what is done and what is seen, chapter by chapter, and keeps
// pictures of it beside the program. Ends with 0 only if everything was as it should be.
#include <exception>
#include <iostream>

#include "tests/desktop/show/FirstRunRound.h"
#include "tests/desktop/show/PlayerRounds.h"
#include "tests/desktop/show/QuitRound.h"
#include "tests/desktop/show/ShowDesktop.h"
#include "tests/desktop/show/WebRound.h"

namespace talmo::test {
namespace {

bool run() {
  ShowDesktop show;
  runFirstRunRound(show);
  PlayerRounds(show).run();
  runWebRound(show);
  runQuitRound(show);
  show.sum();
  return show.report().isGood();
}

}  // namespace
}  // namespace talmo::test

int main() {
  talmo::test::stopShowAtInterruption();
  try {
    return talmo::test::run() ? 0 : 1;
  } catch (const std::exception& error) {
    std::cout.flush();
    std::cerr << "talmo-show: " << error.what() << '\n';
    return 1;
  }
}
