#pragma once

#include <functional>

#include "platform/Rect.h"
#include "platform/Size.h"
#include "platform/View.h"
#include "platform/WindowIdentifier.h"

namespace talmo {

/// A borderless window that floats above the others and gets the keys without bringing its
/// application forward. Made hidden. Main thread only; the callbacks run there too and may be
/// empty.
class Panel {
 public:
  virtual ~Panel() = default;

  virtual WindowIdentifier window() const = 0;

  /// Shows the content from now on: what keeps its identity keeps its hover, focus and motion. When
  /// its ideal size is another than before, the size callback is called before this returns.
  virtual void setContent(const View& content) = 0;

  virtual Rect frame() const = 0;
  virtual void setFrame(const Rect& frame, bool isAnimated) = 0;

  /// The shadow follows the shape the panel has now.
  virtual void invalidateShadow() = 0;

  virtual bool isVisible() const = 0;
  virtual void makeKeyAndOrderFront() = 0;
  virtual void orderOut() = 0;

  /// The content's ideal size has become another one.
  virtual void setOnSizeChange(std::function<void(Size)> callback) = 0;
  /// The cancel action: the Escape key.
  virtual void setOnCancel(std::function<void()> callback) = 0;
  /// The keys go elsewhere now.
  virtual void setOnResignKey(std::function<void()> callback) = 0;
};

}  // namespace talmo
