#include <optional>
#include <unistd.h>
#include <utility>

#include "adapter/linux/StopConditions.h"
#include "adapter/SessionSource.h"
#include "platform/linux/mediasession/MprisSessions.h"

namespace talmo {
namespace {

/// The media session of a Linux desktop: that of the players on the session bus.
class LinuxSessionSource : public SessionSource {
 public:
  std::optional<MediaSession> current(bool wantsArtwork) override {
    std::optional<MprisSession> session = sessions_.current(wantsArtwork);
    if (!session) return std::nullopt;
    return MediaSession{.bundleIdentifier = std::move(session->bundleIdentifier),
                        .trackIdentifier = std::move(session->trackIdentifier),
                        .title = std::move(session->title),
                        .artist = std::move(session->artist),
                        .album = std::move(session->album),
                        .isPlaying = session->isPlaying,
                        .elapsedTime = session->elapsedTime,
                        .duration = session->duration,
                        .artwork = std::move(session->artwork)};
  }

  bool waitForChange() override {
    while (sessions_.waitForChange(stop_.descriptors()) != MprisSessions::Wake::change) {
      if (stop_.met()) return false;
    }
    return true;
  }

  bool send(int command) override { return sessions_.send(command); }

 private:
  StopConditions stop_{STDOUT_FILENO, ::getppid()};
  MprisSessions sessions_;
};

}  // namespace

std::unique_ptr<SessionSource> makeSessionSource() {
  return std::make_unique<LinuxSessionSource>();
}

}  // namespace talmo
