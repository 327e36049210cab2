#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/LoginItem.h"

namespace talmo {

/// A desktop entry that the session starts (freedesktop.org's autostart specification). It is
/// written and removed as a whole, and replaces whatever the person or another program made of it.
class LinuxLoginItem : public LoginItem {
 public:
  /// The program is the running one, or another absolute path; the folder is the person's, or
  /// another one, and need not exist.
  explicit LinuxLoginItem(std::filesystem::path program = runningProgram(),
                          const std::filesystem::path& folder = standardFolder());

  /// The file of the running program. To be asked for at its start: an update may replace it.
  static std::filesystem::path runningProgram();

  /// autostart in the `configHome`. Reads the environment.
  static std::filesystem::path standardFolder();

  /// Whether there is an entry that starts a program that is there, and that nobody has switched
  /// off, as session programs do, with `Hidden` or `X-GNOME-Autostart-enabled`.
  bool isEnabled() const override;

  std::optional<std::string> registerMainApp() override;
  std::optional<std::string> unregisterMainApp() override;

 private:
  const std::filesystem::path program_;
  const std::filesystem::path file_;
};

}  // namespace talmo
