#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <optional>
#include <signal.h>

#include "app/AppCoordinator.h"
#include "platform/linux/applications/SuccessorMark.h"
#include "platform/linux/interface/InstanceName.h"
#include "platform/linux/interface/Toolkit.h"
#include "platform/linux/interface/ToolkitExit.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("main");

constexpr int usageError = 2;

// How long a command may still take when the program leaves. A player that does not answer takes
// longer, and is not worth waiting for: the keys are free and the settings are stored by then.
constexpr Duration grace = std::chrono::milliseconds(500);

/// A write to a pipe or socket without a reader is a failed write and nothing more. A handler, as
/// programs that are started later would inherit an ignored signal.
void surviveBrokenPipes() {
  struct sigaction action{};
  action.sa_handler = [](int) {};
  action.sa_flags = SA_RESTART;
  ::sigaction(SIGPIPE, &action, nullptr);
}

/// One heap for all threads. Each would have one of its own, and keep there what it once needed: a
/// panel that is opened again and again then took more memory with every thread that came and went.
void shareOneHeap() {
  ::mallopt(M_ARENA_MAX, 1);
}

/// The exit status of a process that is not the only one of its session, which has the other one
/// show itself; nothing for one that goes on.
std::optional<int> leaveItToAnother(InstanceName& instance, bool isSuccessor) {
  switch (instance.claim(isSuccessor)) {
    case InstanceName::Claim::ours:
      return std::nullopt;
    case InstanceName::Claim::anothers:
      return EXIT_SUCCESS;
    case InstanceName::Claim::failed:
      std::fputs("talmo: another Talmo is running, and neither answers nor ends\n", stderr);
      return EXIT_FAILURE;
  }
  return std::nullopt;
}

int failWithoutDisplay() {
  const char* const display = std::getenv("DISPLAY");
  std::fprintf(stderr, "talmo: there is no X display to take media keys from (DISPLAY is %s)\n",
               display != nullptr ? display : "not set");
  return EXIT_FAILURE;
}

/// Frees the keys and waits for what still runs, but not for long; returns when nothing does.
void leave(LinuxPlatform& platform, AppCoordinator& coordinator, int status) {
  coordinator.tap().stop();
  if (!platform.dispatch().shutdown(grace)) {
    log.notice("not waiting for the last command");
    std::_Exit(status);
  }
}

/// Serves the program until a signal, its own wish or the loss of the display; returns the exit
/// status.
int serve(LinuxPlatform& platform, AppCoordinator& coordinator, InstanceName& instance) {
  LinuxDispatch& dispatch = platform.dispatch();
  const TerminationSignals signals(dispatch);
  std::atomic<bool> isDisplayLost = false;
  platform.eventTap().onDisplayLost([&] {
    isDisplayLost = true;
    dispatch.stopMainLoop();
  });
  // The toolkit may notice first.
  const ToolkitExit toolkitExit([&] {
    log.error("the X display has gone; leaving");
    leave(platform, coordinator, EXIT_FAILURE);
    std::_Exit(EXIT_FAILURE);
  });

  coordinator.start();
  instance.serve([&coordinator] { coordinator.openPanel(); });
  dispatch.runMainLoop();

  int status = EXIT_SUCCESS;
  if (const std::optional<int> signal = signals.received()) {
    log.info("leaving on signal %d", *signal);
  } else if (isDisplayLost) {
    log.error("the X display has gone; leaving");
    status = EXIT_FAILURE;
  } else {
    log.info("leaving");
  }
  leave(platform, coordinator, status);
  return status;
}

}  // namespace
}  // namespace talmo

int main(int count, char** arguments) {
  if (count > 1) {
    std::fprintf(stderr, "talmo: unknown argument %s\nusage: talmo\n", arguments[1]);
    return talmo::usageError;
  }
  talmo::shareOneHeap();
  talmo::surviveBrokenPipes();
  const bool isSuccessor = talmo::takeSuccessorMark();
  int status = EXIT_SUCCESS;
  {
    const auto toolkit = talmo::Toolkit::connect();
    if (!toolkit) return talmo::failWithoutDisplay();
    talmo::InstanceName instance;
    if (const auto elsewhere = talmo::leaveItToAnother(instance, isSuccessor)) return *elsewhere;
    talmo::LinuxPlatform platform;
    talmo::setPlatform(&platform);
    const auto coordinator = talmo::AppCoordinator::make();
    status = talmo::serve(platform, *coordinator, instance);
  }
  talmo::setPlatform(nullptr);
  return status;
}
