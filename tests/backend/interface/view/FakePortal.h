#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace talmo::test {

/// A settings portal that knows one setting, on a connection of its own. It is on the bus for as
/// long as it lives.
class FakePortal : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  /// Throws when it cannot be on the bus.
  FakePortal(const QString& busAddress, uint colourScheme);
  ~FakePortal() override;

  /// Changes the setting and tells of it.
  void setColourScheme(uint value);

  int reads() const { return reads_; }

 public Q_SLOTS:
  QDBusVariant Read(const QString& group, const QString& key);

 Q_SIGNALS:
  void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  QDBusConnection bus_;
  uint colourScheme_;
  int reads_ = 0;
};

}  // namespace talmo::test
