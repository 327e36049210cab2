#pragma once

#include <array>
#include <memory>

class QApplication;

namespace talmo {

/// The toolkit that the interface is made of, connected to the X display. Made on the main thread
/// before the platform and destroyed after it; without it the interface shows nothing.
///
/// It talks to X also on Wayland desktops, and changes nothing in the environment, which the
/// programs that are started later inherit.
class Toolkit {
 public:
  /// Nothing when there is no X display: the toolkit itself would end the process.
  static std::unique_ptr<Toolkit> connect();

  ~Toolkit();
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;

 private:
  Toolkit();

  // The toolkit keeps references to both.
  int count_ = 0;
  std::array<char*, 4> arguments_{};
  std::unique_ptr<QApplication> application_;
};

}  // namespace talmo
