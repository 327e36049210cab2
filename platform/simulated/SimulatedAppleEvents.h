#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/AppleEvents.h"
#include "platform/Dispatch.h"
#include "platform/simulated/SimulatedApplications.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// Apple events to the applications of the simulated machine, and the person's consent to them.
/// Any thread.
class SimulatedAppleEvents : public AppleEvents {
 public:
  /// One consent query, as it was asked.
  struct Query {
    std::string bundleID;
    bool askUserIfNeeded = false;

    bool operator==(const Query&) const = default;
  };

  // The statuses that the system answers with (MacErrors.h, AppleEvents.h).
  static constexpr std::int32_t granted = 0;
  static constexpr std::int32_t notPermitted = -1743;
  static constexpr std::int32_t wouldRequireConsent = -1744;
  static constexpr std::int32_t processNotFound = -600;

  SimulatedAppleEvents(Dispatch& dispatch, SimulatedApplications& applications)
      : dispatch_(dispatch), applications_(applications) {}

  std::optional<std::int32_t> determinePermission(const std::string& bundleID,
                                                  bool askUserIfNeeded) override;
  std::unique_ptr<ScriptingObject> application(const std::string& bundleID) override;

  /// The status for a running application; granted at first.
  void setConsent(const std::string& bundleID, std::int32_t status);
  /// What the person answers when asked; consent at first.
  void setAnswer(const std::string& bundleID, std::int32_t status);
  /// How long a consent query takes.
  void setQueryDuration(Duration duration);
  /// Whether scripting objects can be made at all.
  void setCanMakeObjects(bool can);

  /// Every consent query so far, in order.
  std::vector<Query> queries() const;
  /// How often the person was asked for consent, by a query, a send or a read.
  int prompts() const;
  /// The time-out, in ticks, of every send and read so far.
  std::vector<long> timeouts() const;
  /// Every property that was read so far, in order.
  std::vector<std::string> reads() const;

 private:
  class Object;

  std::int32_t consent(const std::string& bundleID, bool askUserIfNeeded);
  /// Has the application take one event; what went wrong, or nothing.
  std::optional<std::string> deliver(const std::string& bundleID, long ticks);
  void recordRead(std::string_view property);

  Dispatch& dispatch_;
  SimulatedApplications& applications_;
  mutable Mutex mutex_;
  std::map<std::string, std::int32_t> consents_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, std::int32_t> answers_ TALMO_GUARDED_BY(mutex_);
  Duration queryDuration_ TALMO_GUARDED_BY(mutex_) = Duration::zero();
  bool canMakeObjects_ TALMO_GUARDED_BY(mutex_) = true;
  std::vector<Query> queries_ TALMO_GUARDED_BY(mutex_);
  int prompts_ TALMO_GUARDED_BY(mutex_) = 0;
  std::vector<long> timeouts_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::string> reads_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
