#include <optional>
#include <poll.h>
#include <unistd.h>

#include "adapter/linux/StopConditions.h"
#include "adapter/SessionSource.h"

namespace talmo {
namespace {

/// A desktop on which nobody owns a media session.
class LinuxSessionSource : public SessionSource {
 public:
  std::optional<MediaSession> current(bool /*wantsArtwork*/) override { return std::nullopt; }

  bool waitForChange() override {
    while (!stop_.met()) {
      const auto descriptors = stop_.descriptors();
      ::poll(descriptors.data(), descriptors.size(), -1);
    }
    return false;
  }

  bool send(int /*command*/) override { return false; }

 private:
  StopConditions stop_{STDOUT_FILENO, ::getppid()};
};

}  // namespace

std::unique_ptr<SessionSource> makeSessionSource() {
  return std::make_unique<LinuxSessionSource>();
}

}  // namespace talmo
