#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Queue.h"
#include "platform/RunningApplication.h"
#include "platform/Timer.h"
#include "support/Published.h"
#include "support/Time.h"
#include "web/WebTabMatch.h"

namespace talmo {

/// Which browser tabs hold web players. An object scans now and then and publishes what it found;
/// it is made, used and destroyed on the main thread. What any scan found is kept for the whole
/// process, and answers the class's own questions on any thread.
class WebTabDetection : public std::enable_shared_from_this<WebTabDetection> {
 public:
  /// The best tab of each web player, by target id.
  using Matches = std::map<std::string, WebTabMatch>;

  static std::shared_ptr<WebTabDetection> make();

  ~WebTabDetection();
  WebTabDetection(const WebTabDetection&) = delete;
  WebTabDetection& operator=(const WebTabDetection&) = delete;

  /// Scans now and then every four seconds, up to one late; begins anew when it does so already.
  void start();

  /// Ends the periodic scans. One that is under way is still published.
  void stop();

  /// Scans once, unless a scan of this object's is queued or under way.
  void scanSoon();

  /// What this object's last scan found.
  const Published<Matches>& matches() const { return matches_; }
  Published<Matches>& matches() { return matches_; }

  /// `callback` is called after each time that `matches` was set.
  void setOnChange(std::function<void(const Matches&)> callback) {
    onChange_ = std::move(callback);
  }

  /// Scans, waits for the result and keeps it, as any scan does. Any thread but the main one.
  static Matches refreshMatches();

  /// What the last scan found, whatever its age.
  static Matches cachedMatches();

  /// What the last scan found when it ended at most that long ago; empty otherwise.
  static Matches cachedMatches(Duration freshWithin);

  /// The tab of a web player by the last scan, whatever its age; nothing when there was none.
  static std::optional<WebTabMatch> cachedMatch(const std::string& targetID);

  /// Every player tab of a browser by the last scan, in its order.
  static std::vector<WebTabMatch> cachedMatchesInBrowser(const std::string& bundleID);

  /// The other player tabs of the same browser by the last scan, of whatever web player.
  static std::vector<WebTabMatch> siblings(const WebTabMatch& match);

  /// The tab of a web player by the last scan while its browser runs; otherwise by a new scan,
  /// which it waits for. Any thread but the main one.
  static std::optional<WebTabMatch> currentMatch(const std::string& targetID);

  /// The running browser that holds the cached tab of a web player; nothing without a cached tab
  /// or when the browser has quit.
  static std::optional<RunningApplication> hostingRunningApplication(const std::string& targetID);

 private:
  /// Shared with the queue, which never owns the object.
  struct ScanInFlight;

  WebTabDetection();

  void publish(Matches matches);

  Published<Matches> matches_;
  std::function<void(const Matches&)> onChange_;
  std::shared_ptr<Timer> timer_;
  const std::shared_ptr<Queue> queue_;
  const std::shared_ptr<ScanInFlight> scanInFlight_;
};

}  // namespace talmo
