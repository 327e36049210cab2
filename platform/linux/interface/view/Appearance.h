#pragma once

#include <memory>
#include <optional>
#include <QDBusMessage>
#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

namespace talmo {

/// Whether the desktop's look is light or dark. Main thread only. It asks the desktop's settings
/// portal where there is one, without waiting for it or starting it, and goes by the lightness of
/// the application's palette until and unless that says something.
class Appearance : public QObject {
  Q_OBJECT

 public:
  Appearance();
  ~Appearance() override;

  bool isDark() const { return isDark_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void changed();

 private:
  Q_SLOT void settingChanged(const QDBusMessage& signal);
  void ask();
  void believe(std::optional<bool> preference);
  void decide();

  // Asked and not yet answered.
  std::unique_ptr<QDBusPendingCallWatcher> question_;
  /// What the portal says.
  std::optional<bool> prefersDark_;
  bool isDark_ = false;
};

}  // namespace talmo
