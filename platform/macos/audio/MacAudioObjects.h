#pragma once

#include "platform/AudioObjects.h"

namespace talmo {

/// The objects of Core Audio. Any thread; how long a call takes is the audio system's affair.
class MacAudioObjects : public AudioObjects {
 public:
  MacAudioObjects();

  bool hasProcessObjects() const override;
  AudioResult<std::uint32_t> dataSize(Object object, Selector selector) override;
  AudioResult<std::vector<Object>> objects(Object object, Selector selector,
                                           std::uint32_t size) override;
  bool hasProperty(Object object, Selector selector) override;
  AudioResult<std::uint32_t> number(Object object, Selector selector) override;
  AudioResult<std::string> string(Object object, Selector selector) override;

  bool knowsResponsibleProcesses() const override { return responsibleProcess_ != nullptr; }

  /// To be called only where that is known.
  ProcessIdentifier responsibleProcess(ProcessIdentifier process) override;

 private:
  /// Not published; takes a `pid_t` and gives one.
  using ResponsibleProcess = ProcessIdentifier (*)(ProcessIdentifier);

  const ResponsibleProcess responsibleProcess_;
};

}  // namespace talmo
