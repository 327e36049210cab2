#pragma once

namespace talmo {

/// How a child process ended.
struct ChildTermination {
  enum class Reason { exit, uncaughtSignal };

  Reason reason = Reason::exit;
  /// The exit status, or the signal's number.
  int status = 0;

  bool operator==(const ChildTermination&) const = default;
};

}  // namespace talmo
