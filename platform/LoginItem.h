#pragma once

#include <optional>
#include <string>

namespace talmo {

/// The program itself as a login item: whether the person's session starts it.
///
/// Called on the main thread. The person may change the same with other programs at any time.
class LoginItem {
 public:
  virtual ~LoginItem() = default;

  /// Whether the next session will start the program; asked of the system at every call.
  virtual bool isEnabled() const = 0;

  /// Makes the program a login item. In words what went wrong, if anything did; all is as before
  /// then.
  virtual std::optional<std::string> registerMainApp() = 0;

  /// The opposite, with the same result. There need not be a login item.
  virtual std::optional<std::string> unregisterMainApp() = 0;
};

}  // namespace talmo
