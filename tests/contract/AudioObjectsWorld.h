#pragma once

#include <string>

#include "platform/AudioObjects.h"

namespace talmo::test {

/// An audio system that is silent at first, and applications that play on it. Each change can be
/// seen when the function that makes it returns.
class AudioObjectsWorld {
 public:
  /// A stream, by the process that plays it.
  using Stream = ProcessIdentifier;

  virtual ~AudioObjectsWorld() = default;

  virtual AudioObjects& audioObjects() = 0;

  /// The bundle identifier of the application that `start` starts.
  virtual std::string bundleID() = 0;

  /// Starts an application that plays.
  virtual Stream start() = 0;

  /// Starts an application, and a process of its own that is no application and plays.
  virtual Stream startHelper(Stream& application) = 0;

  virtual void cork(Stream stream, bool isCorked) = 0;
  virtual void end(Stream stream) = 0;
};

}  // namespace talmo::test
