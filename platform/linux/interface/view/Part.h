#pragma once

#include <string>

#include "platform/linux/interface/view/Look.h"
#include "platform/View.h"

class QWidget;

namespace talmo {

/// What a widget that shows one part of a view is to the parts around it. The widget's parent owns
/// both. Main thread only.
class Part {
 public:
  Part(const Part&) = delete;
  Part& operator=(const Part&) = delete;

  /// Whether the view is a later value of the part that this one shows.
  bool shows(const View& view) const {
    return view.identity == identity_ && view.kind == kind_ && view.role == role_;
  }

  ViewKind kind() const { return kind_; }
  ViewRole role() const { return role_; }

  /// Whether it takes the room in a line that the others leave, where it is the first that would.
  bool takesRoom() const { return kind_ == ViewKind::text || kind_ == ViewKind::vertical; }

  virtual QWidget& widget() = 0;

  /// Takes in the part's next value, and the look's colours and fonts as they are now.
  virtual void setView(const View& view) = 0;

 protected:
  Part(const View& view, const Look& look)
      : identity_(view.identity), kind_(view.kind), role_(view.role), look_(look) {}
  ~Part() = default;

  const Look& look() const { return look_; }

 private:
  const std::string identity_;
  const ViewKind kind_;
  const ViewRole role_;
  const Look& look_;
};

}  // namespace talmo
