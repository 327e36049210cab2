// Captures the media keys of $DISPLAY and consumes them until it is killed; says "ready" and, for
// each event, "consumed".

#include <cstdio>
#include <string_view>

#include "platform/linux/input/LinuxEventTap.h"
#include "platform/Platform.h"
#include "tests/support/TestPlatform.h"

int main() {
  const talmo::test::TestPlatform platform;
  talmo::LinuxEventTap eventTap;
  const auto say = [](std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
  };
  const auto port = eventTap.create(
      {.eventsOfInterest = std::uint64_t{1} << 14, .callback = [](talmo::TapEvent&, void*) {
         std::fputs("consumed\n", stdout);
         std::fflush(stdout);
         return talmo::TapVerdict::consume;
       }});
  if (!port) {
    say("refused\n");
    return 1;
  }
  const auto runLoop = eventTap.currentRunLoop();
  runLoop->addSource(eventTap.makeRunLoopSource(port));
  say("ready\n");
  runLoop->run();
  return 0;
}
