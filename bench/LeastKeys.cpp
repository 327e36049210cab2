// talmo-least-keys KEYCODE
//
// The least program that Talmo's start is measured beside: it grabs one key of $DISPLAY and sends a
// message for each press, until it is ended.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "bench/LeastRouter.h"

int main(int count, char** arguments) {
  const char* const display = std::getenv("DISPLAY");
  if (count != 2 || display == nullptr) return 2;
  const talmo::test::LeastRouter router(display,
                                        static_cast<std::uint8_t>(std::stoi(arguments[1])));
  ::pause();
  return 0;
}
