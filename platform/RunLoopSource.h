#pragma once

namespace talmo {

/// What makes a run loop serve something: made for one port, added to one run loop.
class RunLoopSource {
 public:
  virtual ~RunLoopSource() = default;
};

}  // namespace talmo
