// What the program starts where it would start /usr/bin/pkill on a Mac: "pkill -f SCRIPT". The
// system's own takes the path for a pattern, and ends whatever has something like it in its
// command line.

#include <cstdio>
#include <string_view>

#include "platform/linux/pkill/LeftoverHelpers.h"

int main(int count, char** arguments) {
  // As pkill(1) ends: 0 when there was one, 1 when there was none, 2 for a wrong command line.
  if (count != 3 || std::string_view(arguments[1]) != "-f") {
    std::fputs("usage: pkill -f SCRIPT\n", stderr);
    return 2;
  }
  return talmo::endLeftoverHelpers(arguments[2]) ? 0 : 1;
}
