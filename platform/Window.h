#pragma once

#include <functional>

#include "platform/View.h"

namespace talmo {

/// An ordinary window of a fixed size. Made hidden; letting go of it takes it from the screen
/// without a callback, from within its own callbacks and its content's actions as well. Main thread
/// only.
class Window {
 public:
  virtual ~Window() = default;

  /// Shows the content from now on: what keeps its identity keeps its hover and motion.
  virtual void setContent(const View& content) = 0;

  /// Puts it into the middle of the screen.
  virtual void center() = 0;

  virtual bool isVisible() const = 0;
  virtual void makeKeyAndOrderFront() = 0;

  /// Calls the callback and takes it from the screen, from which it can come back; nothing when it
  /// is not there.
  virtual void close() = 0;

  /// The window is about to be closed, by `close` or by the person. May be empty.
  virtual void setOnWillClose(std::function<void()> callback) = 0;
};

}  // namespace talmo
