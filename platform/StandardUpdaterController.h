#pragma once

namespace talmo {

/// The updater of the system's update framework, with the framework's own windows. Main thread; it
/// ends with the object.
class StandardUpdaterController {
 public:
  virtual ~StandardUpdaterController() = default;

  /// Whether it looks for updates by itself; kept in the person's settings.
  virtual bool automaticallyChecksForUpdates() const = 0;
  virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;

  /// Looks for an update now and shows the person what comes of it. Returns at once.
  virtual void checkForUpdates() = 0;
};

}  // namespace talmo
