#pragma once

#include <optional>
#include <vector>

#include "platform/AudioObjects.h"
#include "platform/linux/audio/SoundServer.h"

namespace talmo {

/// The playback streams of the sound server as the objects of the processes that play them. Asking
/// for the list's size, at most half a second, takes the list; everything else is answered from it,
/// and an object stands for the same stream until the next. Called on one queue.
class LinuxAudioObjects : public AudioObjects {
 public:
  bool hasProcessObjects() const override { return true; }

  /// Where the sound server gives no list, one of libpulse's error codes.
  AudioResult<std::uint32_t> dataSize(Object object, Selector selector) override;

  AudioResult<std::vector<Object>> objects(Object object, Selector selector,
                                           std::uint32_t size) override;
  bool hasProperty(Object object, Selector selector) override;
  AudioResult<std::uint32_t> number(Object object, Selector selector) override;

  /// The bundle identifier of `LinuxApplications` to which the process's program belongs.
  AudioResult<std::string> string(Object object, Selector selector) override;

  bool knowsResponsibleProcesses() const override { return true; }

  /// The first process of the nearest application among the process and its ancestors; the process
  /// itself when none of them is an application.
  ProcessIdentifier responsibleProcess(ProcessIdentifier process) override;

 private:
  const SoundStream* stream(Object object) const;
  std::optional<std::uint32_t> numberOf(Object object, Selector selector) const;
  std::optional<std::string> bundleOf(Object object, Selector selector) const;

  SoundServer server_;
  std::vector<SoundStream> streams_;
};

}  // namespace talmo
