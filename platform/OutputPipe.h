#pragma once

#include <functional>
#include <string>

namespace talmo {

/// The reading end of the pipe that a child writes to. It is closed when it is let go of; its
/// handler does not begin any more then.
///
/// It is read in one of two manners: by a readability handler, or by `readToEnd`; not by both at a
/// time. The functions may be called on any thread.
class OutputPipe {
 public:
  virtual ~OutputPipe() = default;

  /// `handler` is called on a thread of the system, one call at a time, when there is something to
  /// read, and once more at the end of the file, with nothing. It reads by `availableData`, and
  /// must not wait for anything: other children's handlers may share its thread. An empty function
  /// takes the handler away; a call that is under way ends by itself.
  virtual void setReadabilityHandler(std::function<void(OutputPipe&)> handler) = 0;

  /// What can be read now, in one piece of up to some hundred kilobytes; waits when there is
  /// nothing yet. Empty at the end of the file.
  virtual std::string availableData() = 0;

  /// Everything up to the end of the file, which it waits for: until the child, and whoever it
  /// handed its output to, have closed it.
  virtual std::string readToEnd() = 0;
};

}  // namespace talmo
