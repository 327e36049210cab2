#pragma once

#include <functional>
#include <optional>
#include <string>

#include "web/WebTabDetection.h"

namespace talmo {

/// Which player auto mode follows. Nothing is kept here; any thread.
///
/// A session owner is a bundle identifier; that of a helper process counts as its application's.
class RoutingResolver {
 public:
  using WebTabs = WebTabDetection::Matches;

  RoutingResolver() = delete;

  /// The id of the target that a key goes to: the session owner's, else the last one while it is
  /// available, else the default, if any. A paused session counts as a playing one, so that
  /// play/pause resumes what was last heard.
  static std::optional<std::string> resolve(
      const std::optional<std::string>& sessionOwner, const std::string& sessionTitle,
      bool sessionIsPlaying, const WebTabs& webTabs,
      const std::optional<std::string>& lastResolvedID, const std::optional<std::string>& defaultID,
      const std::function<bool(const std::string&)>& isAvailable);

  /// The target that a session belongs to. With known tabs in the owner, that is the tab which the
  /// title speaks for, or nothing when it speaks for none.
  static std::optional<std::string> targetID(const std::string& forSessionOwner,
                                             const std::string& title, const WebTabs& webTabs);

  /// The target that auto mode follows by the session alone.
  static std::optional<std::string> followedFromSession(
      const std::optional<std::string>& sessionOwner, const std::string& sessionTitle,
      const WebTabs& webTabs);

  /// Whether a browser owns the session of which no tab is known.
  static bool needsTabRefresh(const std::optional<std::string>& sessionOwner,
                              const WebTabs& webTabs);

  /// Whether the target runs now; for a web target, a browser with its tab.
  static bool isAvailable(const std::string& id);
};

}  // namespace talmo
