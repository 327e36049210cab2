#pragma once

#include <memory>
#include <string>

struct sd_bus_message;

namespace talmo {

/// What a call came to: the message of a successful reply, or in words why there is none.
struct BusReply {
  struct Unref {
    void operator()(sd_bus_message* unwanted) const;
  };

  /// Null when there is none. Belongs to the calling thread, as its connection does.
  std::unique_ptr<sd_bus_message, Unref> message;
  /// The name and message of the error that came back, from the callee or from the bus for a callee
  /// that is gone; or that there is no bus, or no answer.
  std::string error;
  /// Whether it failed by the deadline.
  bool isTimeout = false;
};

}  // namespace talmo
