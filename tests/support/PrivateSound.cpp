#include "tests/support/PrivateSound.h"

#include <stdexcept>

#include "tests/support/SocketServer.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

PrivateSound::PrivateSound(const std::filesystem::path& folder,
                           const std::map<std::string, std::string>& environment)
    : address_("unix:" + (folder / "sound").string()),
      server_({.arguments = {"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                             "--realtime=no", "--high-priority=no", "--exit-idle-time=-1",
                             "--disable-shm=yes", "--log-target=stderr",
                             "--load=module-native-protocol-unix auth-anonymous=1 socket=" +
                                 (folder / "sound").string(),
                             "--load=module-null-sink sink_name=nothing",
                             // A null sink that never rests burns a third of a core.
                             "--load=module-suspend-on-idle timeout=2"},
               .environment = environment}) {
  if (!waitUntil([&] { return takesConnections(folder / "sound"); })) {
    throw std::runtime_error("the sound server did not start: " + server_.output());
  }
}

}  // namespace talmo::test
