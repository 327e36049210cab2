#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/linux/mediasession/SessionOrder.h"

namespace talmo {

/// The order of the players as a small file in the person's runtime folder. Who started last
/// cannot be seen from the players themselves, so whoever watches them leaves it there for those
/// that look later. Written as a whole or not at all; the last writer is right.
class SessionRecord {
 public:
  /// The record in $XDG_RUNTIME_DIR; one that is never there when that is not set.
  static SessionRecord standard();

  /// The record in another runtime folder.
  explicit SessionRecord(std::filesystem::path runtimeFolder)
      : runtimeFolder_(std::move(runtimeFolder)) {}

  /// The order that was noted for the bus of that id. Nothing when there is none, when it is
  /// damaged or somebody else's, or when it is about another bus.
  std::optional<SessionOrder> read(const std::string& busId) const;

  /// Notes the order. Whether that was possible.
  bool write(const std::string& busId, const SessionOrder& order) const;

 private:
  std::filesystem::path runtimeFolder_;
};

}  // namespace talmo
