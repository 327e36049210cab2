#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/BusCall.h"
#include "platform/linux/applications/BusConnection.h"
#include "platform/linux/applications/BusReply.h"
#include "support/Time.h"

namespace talmo {

/// The calling thread's connection to the session bus. Every thread has its own, so that a callee
/// that does not answer costs the caller its time-out and no other thread anything.
///
/// It is opened by the first call, opened anew by the next call after it was lost, and closed when
/// the thread ends. No call starts a program, and none is ever sent twice.
class SessionBus {
 public:
  static SessionBus& ofThisThread();

  SessionBus() = default;
  ~SessionBus() = default;
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  /// Sends `call` and waits for its reply until `deadline`.
  BusReply call(const BusCall& call, Uptime deadline);

  /// Sends all calls at once and waits until each has its reply, `deadline` passes, or `suffices`
  /// says of a reply (given with its place in the list) that the others no longer matter. One reply
  /// per call, in their order; those still missing are time-outs.
  std::vector<BusReply> callAll(const std::vector<BusCall>& calls, Uptime deadline,
                                const std::function<bool(const BusReply&)>& suffices = {});

 private:
  /// Sees to an open connection; otherwise says why there is none.
  std::optional<BusReply> connect(Uptime deadline);

  BusConnection bus_;
};

}  // namespace talmo
