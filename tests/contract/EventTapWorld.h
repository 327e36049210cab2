#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "platform/EventTap.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A machine with a keyboard, an application in front, and event taps between the two. Keys are
/// named by their auxiliary-control key type, 16 to 20. It is the platform in use while it lives.
class EventTapWorld : public DispatchWorld {
 public:
  /// A media-key event that went on to the applications. A repeat is a further press.
  struct Seen {
    std::int32_t code = 0;
    bool isPress = false;

    bool operator==(const Seen&) const = default;

    friend std::ostream& operator<<(std::ostream& stream, const Seen& seen) {
      return stream << (seen.isPress ? "+" : "-") << seen.code;
    }
  };

  virtual EventTap& eventTap() = 0;

  /// A key goes down, or up; between the two it does not repeat.
  virtual void press(std::int32_t code) = 0;
  virtual void release(std::int32_t code) = 0;

  /// A key goes down and repeats, once or more often, until it is released. A repeat may come any
  /// time later, but comes.
  virtual void hold(std::int32_t code) = 0;

  /// What the applications have seen so far, in order. May be called in conditions of `runUntil`.
  virtual std::vector<Seen> othersSaw() = 0;

  /// From now on no tap is granted.
  virtual void refuseTaps() = 0;
};

}  // namespace talmo::test
