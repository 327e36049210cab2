#pragma once

#include <memory>
#include <optional>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/Windows.h"

namespace talmo {

/// Windows of the toolkit, without which none can be made. Of what a window may be made with, this
/// is the one kind that there is: with its title bar hidden and transparent, and a clear
/// background. A click counts wherever it makes a window the active one.
class LinuxOwnWindows : public Windows {
 public:
  /// `vectors` lives longer.
  explicit LinuxOwnWindows(const Vectors& vectors) : vectors_(vectors) {}
  ~LinuxOwnWindows() override;
  LinuxOwnWindows(const LinuxOwnWindows&) = delete;
  LinuxOwnWindows& operator=(const LinuxOwnWindows&) = delete;

  std::unique_ptr<Window> makeWindow(const WindowParameters& parameters) override;

 private:
  const Vectors& vectors_;
  // From the first window on.
  std::optional<Appearance> appearance_;
};

}  // namespace talmo
