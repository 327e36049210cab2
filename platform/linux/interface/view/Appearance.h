#pragma once

#include <optional>
#include <QObject>
#include <QString>

class QDBusVariant;

namespace talmo {

/// Whether the desktop's look is light or dark. Main thread only. It asks the desktop's settings
/// portal where there is one, without waiting for it or starting it, and goes by the lightness of
/// the application's palette until and unless that says something.
class Appearance : public QObject {
  Q_OBJECT

 public:
  Appearance();

  bool isDark() const { return isDark_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  void changed();

 private:
  Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
  void ask();
  void believe(std::optional<bool> preference);
  void decide();

  /// What the portal says.
  std::optional<bool> prefersDark_;
  bool isDark_ = false;
};

}  // namespace talmo
