#include <csignal>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/linux/audio/LinuxAudioObjects.h"
#include "tests/backend/audio/SoundDesk.h"
#include "tests/contract/AudioObjectsContract.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

/// Real streams on a real server.
class LinuxAudioObjectsWorld : public AudioObjectsWorld {
 public:
  AudioObjects& audioObjects() override { return audio_; }
  std::string bundleID() override { return "org.videolan.vlc"; }

  Stream start() override { return keep(desk_.start("vlc")); }

  Stream startHelper(Stream& application) override {
    SoundDesk::Player player = desk_.startHelper("vlc", "talmo-helper");
    application = player.process->pid();
    return keep(std::move(player));
  }

  void cork(Stream stream, bool isCorked) override {
    SoundDesk::command(players_.at(stream), isCorked ? SIGUSR1 : SIGUSR2,
                       isCorked ? "corked" : "uncorked");
  }

  void end(Stream stream) override {
    const std::uint32_t before = listSize();
    players_.erase(stream);
    // The server learns of the end on its own.
    waitUntil([&] { return listSize() < before; });
  }

 private:
  Stream keep(SoundDesk::Player player) {
    const Stream stream = player.playing;
    players_[stream] = std::move(player);
    return stream;
  }

  std::uint32_t listSize() {
    return audio_.dataSize(AudioObjects::systemObject, AudioObjects::processObjectList).value;
  }

  SoundDesk desk_;
  LinuxAudioObjects audio_;
  std::map<Stream, SoundDesk::Player> players_;
};

INSTANTIATE_TEST_SUITE_P(Linux, AudioObjectsContract, testing::Values([] {
                           return std::make_unique<LinuxAudioObjectsWorld>();
                         }));

}  // namespace
}  // namespace talmo::test
