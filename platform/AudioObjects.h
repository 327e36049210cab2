#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/AudioResult.h"
#include "platform/ProcessIdentifier.h"

namespace talmo {

/// The audio system's objects and their properties (Core Audio's AudioHardware.h), always of the
/// global scope and the main element, and which process answers for another.
///
/// Called by `AudioActivity` only, on its queue. A call may take as long as the audio system does;
/// a backend bounds it.
class AudioObjects {
 public:
  /// `AudioObjectID`.
  using Object = std::uint32_t;
  /// A property's four-character code (`AudioObjectPropertySelector`).
  using Selector = std::uint32_t;

  /// What the program asks for (AudioHardwareBase.h, AudioHardware.h).
  static constexpr Object systemObject = 1;
  static constexpr Selector processObjectList = 0x70727323;       // 'prs#'
  static constexpr Selector processPID = 0x70706964;              // 'ppid'
  static constexpr Selector processBundleID = 0x70626964;         // 'pbid'
  static constexpr Selector processIsRunningOutput = 0x7069726F;  // 'piro'

  virtual ~AudioObjects() = default;

  /// Whether the system has objects that stand for processes, which macOS has from 14.4 on.
  virtual bool hasProcessObjects() const = 0;

  /// The size of a property's value in bytes.
  virtual AudioResult<std::uint32_t> dataSize(Object object, Selector selector) = 0;

  /// A list of objects of up to `size` bytes, four for each.
  virtual AudioResult<std::vector<Object>> objects(Object object, Selector selector,
                                                   std::uint32_t size) = 0;

  virtual bool hasProperty(Object object, Selector selector) = 0;

  /// A 32-bit number; a process identifier is one too.
  virtual AudioResult<std::uint32_t> number(Object object, Selector selector) = 0;

  virtual AudioResult<std::string> string(Object object, Selector selector) = 0;

  /// Whether the system can say who is responsible for a process.
  virtual bool knowsResponsibleProcesses() const = 0;

  /// The process that is responsible for `process`, often itself; 0 or less when there is none.
  virtual ProcessIdentifier responsibleProcess(ProcessIdentifier process) = 0;
};

}  // namespace talmo
