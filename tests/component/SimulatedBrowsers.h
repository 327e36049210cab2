#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedChildScript.h"
#include "platform/simulated/SimulatedPlatform.h"

namespace talmo::test {

/// The scriptable browsers of a simulated machine, and the adapter beside them: says what every run
/// of `osascript` and of the adapter does. Any thread.
class SimulatedBrowsers {
 public:
  using Script = SimulatedChildScript;

  /// What an AppleScript is for.
  enum class Kind { scan, javaScript, focus };

  struct Tab {
    std::string url;
    std::string title;
  };

  /// From now on `machine`, which lives longer, runs these programs.
  explicit SimulatedBrowsers(SimulatedPlatform& machine);

  /// Starts a browser that has consent.
  ProcessIdentifier launch(const std::string& bundleID, const std::string& name);

  /// What a scan of that browser finds; nothing at first.
  void setTabs(const std::string& bundleID, const std::vector<Tab>& tabs);

  /// What a script of that kind does in that browser. At first the routes succeed.
  void setScript(const std::string& bundleID, Kind kind, Script script);

  /// What the adapter's `get` answers; nobody owns the session at first.
  void setSession(const std::string& bundleID, const std::string& title,
                  const std::string& parentBundleID = "");
  void setNoSession();
  void setGet(Script script);

  /// What the adapter's stream does; at first it ends at once.
  void setStream(Script script);

  /// Everything that was asked, in order: "scan com.apple.Safari", "js ...", "focus ...", "get",
  /// "send 2".
  std::vector<std::string> asked() const;

  /// The AppleScripts of that kind, in order.
  std::vector<std::string> scripts(Kind kind) const;

 private:
  /// Shared with the machine, which may start a program when this object has gone.
  struct Programs;

  SimulatedPlatform& machine_;
  const std::shared_ptr<Programs> programs_;
};

}  // namespace talmo::test
