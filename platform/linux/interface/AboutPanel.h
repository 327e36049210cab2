#pragma once

#include <QPointer>

class QMessageBox;

namespace talmo {

/// A small window that says what this program is. Main thread.
class AboutPanel {
 public:
  AboutPanel() = default;
  ~AboutPanel();
  AboutPanel(const AboutPanel&) = delete;
  AboutPanel& operator=(const AboutPanel&) = delete;

  /// Shows it in front.
  void show();

  /// Brings it to the front when it is open.
  void bringForward();

 private:
  // Gone when the person closes it.
  QPointer<QMessageBox> box_;
};

}  // namespace talmo
