#include "tests/backend/interface/view/FakePortal.h"

#include <QDBusError>
#include <stdexcept>

namespace talmo::test {
namespace {

const QString connectionName = QStringLiteral("fake portal");
const QString group = QStringLiteral("org.freedesktop.appearance");
const QString key = QStringLiteral("color-scheme");

}  // namespace

FakePortal::FakePortal(const QString& busAddress, uint colourScheme)
    : bus_(QDBusConnection::connectToBus(busAddress, connectionName)), colourScheme_(colourScheme) {
  if (!bus_.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) ||
      !bus_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"))) {
    throw std::runtime_error("no portal: " + bus_.lastError().message().toStdString());
  }
}

FakePortal::~FakePortal() {
  QDBusConnection::disconnectFromBus(connectionName);
}

void FakePortal::setColourScheme(uint value) {
  colourScheme_ = value;
  // Another setting of the group, which says nothing about the look.
  Q_EMIT SettingChanged(group, QStringLiteral("contrast"), QDBusVariant(1U - value % 2));
  Q_EMIT SettingChanged(group, key, QDBusVariant(value));
}

QDBusVariant FakePortal::Read(const QString& askedGroup, const QString& askedKey) {
  ++reads_;
  // The real one wraps the value twice.
  const uint value = askedGroup == group && askedKey == key ? colourScheme_ : 0;
  return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
}

}  // namespace talmo::test
