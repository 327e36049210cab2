#pragma once

#include <functional>
#include <QObject>

namespace talmo {

/// The session manager's wish that the program ends, as at a logout. The toolkit by itself would
/// close every window first, as if the person did, and stay when one of them does not go. Main
/// thread, with the toolkit.
class QuitRequests : public QObject {
 public:
  /// `quit` is called at each wish.
  explicit QuitRequests(std::function<void()> quit);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  std::function<void()> quit_;
};

}  // namespace talmo
