#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/AudioObjects.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The audio system of the simulated machine: a list of processes that a test sets. Any thread.
class SimulatedAudioObjects : public AudioObjects {
 public:
  /// kAudioHardwareUnknownPropertyError, 'who?', for what an object does not have.
  static constexpr std::int32_t unknownProperty = 0x77686F3F;
  /// kAudioHardwareUnspecifiedError, 'what', for what it has and cannot tell.
  static constexpr std::int32_t unreadable = 0x77686174;

  /// A process object; what is absent is a property that it does not have.
  struct Process {
    std::optional<bool> isRunningOutput = true;
    std::optional<std::string> bundleID = std::nullopt;
    std::optional<ProcessIdentifier> process = std::nullopt;
    /// Properties that are there and cannot be read.
    std::set<Selector> unreadable;
  };

  /// Puts a process at the end of the list.
  Object add(const Process& process);
  void set(Object object, const Process& process);
  void remove(Object object);

  void setHasProcessObjects(bool has);
  void setKnowsResponsibleProcesses(bool knows);
  /// A process for which none is set is responsible for itself.
  void setResponsibleProcess(ProcessIdentifier process, ProcessIdentifier responsible);
  /// What asking for the list's size, and for the list, ends with; 0 at first.
  void setListSizeStatus(std::int32_t status);
  void setListStatus(std::int32_t status);

  /// How often a property's value was read.
  int reads(Object object, Selector selector) const;

  bool hasProcessObjects() const override;
  AudioResult<std::uint32_t> dataSize(Object object, Selector selector) override;
  AudioResult<std::vector<Object>> objects(Object object, Selector selector,
                                           std::uint32_t size) override;
  bool hasProperty(Object object, Selector selector) override;
  AudioResult<std::uint32_t> number(Object object, Selector selector) override;
  AudioResult<std::string> string(Object object, Selector selector) override;
  bool knowsResponsibleProcesses() const override;
  ProcessIdentifier responsibleProcess(ProcessIdentifier process) override;

 private:
  std::optional<std::uint32_t> numberOf(Object object, Selector selector) const
      TALMO_REQUIRES(mutex_);
  std::optional<std::string> bundleOf(Object object, Selector selector) const
      TALMO_REQUIRES(mutex_);
  bool isUnreadable(Object object, Selector selector) const TALMO_REQUIRES(mutex_);

  mutable Mutex mutex_;
  std::map<Object, Process> processes_ TALMO_GUARDED_BY(mutex_);
  Object nextObject_ TALMO_GUARDED_BY(mutex_) = 40;
  bool hasProcessObjects_ TALMO_GUARDED_BY(mutex_) = true;
  bool knowsResponsibleProcesses_ TALMO_GUARDED_BY(mutex_) = true;
  std::map<ProcessIdentifier, ProcessIdentifier> responsible_ TALMO_GUARDED_BY(mutex_);
  std::int32_t listSizeStatus_ TALMO_GUARDED_BY(mutex_) = 0;
  std::int32_t listStatus_ TALMO_GUARDED_BY(mutex_) = 0;
  std::map<std::pair<Object, Selector>, int> reads_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
