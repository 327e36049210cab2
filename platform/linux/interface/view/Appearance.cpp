#include "platform/linux/interface/view/Appearance.h"

#include <QApplication>
#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QEvent>
#include <QPalette>
#include <QVariant>
#include <QVariantList>

namespace talmo {
namespace {

// The portal's documentation: org.freedesktop.portal.Settings.
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString group = QStringLiteral("org.freedesktop.appearance");
const QString key = QStringLiteral("color-scheme");
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

/// The preference in a value, which may be wrapped twice.
std::optional<bool> preferenceIn(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  switch (value.toUInt()) {
    case prefersDark:
      return true;
    case prefersLight:
      return false;
    default:
      return std::nullopt;
  }
}

}  // namespace

Appearance::Appearance() {
  decide();
  qApp->installEventFilter(this);
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  // The whole message: a slot with the arguments' types is refused before Qt has met a variant.
  bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QDBusMessage)));
  // The portal may come after us when the session begins.
  auto* watcher =
      new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForRegistration, this);
  connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
  ask();
}

Appearance::~Appearance() = default;

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) decide();
  return QObject::eventFilter(watched, event);
}

void Appearance::settingChanged(const QDBusMessage& signal) {
  const QVariantList arguments = signal.arguments();
  if (arguments.size() != 3 || arguments[0] != group || arguments[1] != key) return;
  // An answer that is still to come is older than this, or says the same.
  question_.reset();
  believe(preferenceIn(arguments[2]));
}

void Appearance::ask() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  call << group << key;
  call.setAutoStartService(false);
  question_ =
      std::make_unique<QDBusPendingCallWatcher>(QDBusConnection::sessionBus().asyncCall(call));
  connect(question_.get(), &QDBusPendingCallWatcher::finished, this, [this] {
    QDBusPendingCallWatcher* const answered = question_.release();
    answered->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *answered;
    if (!reply.isError()) believe(preferenceIn(reply.value().variant()));
  });
}

void Appearance::believe(std::optional<bool> preference) {
  prefersDark_ = preference;
  decide();
}

void Appearance::decide() {
  const bool isPaletteDark = QApplication::palette().color(QPalette::Window).lightnessF() < 0.5F;
  const bool isDark = prefersDark_.value_or(isPaletteDark);
  if (isDark == isDark_) return;
  isDark_ = isDark;
  Q_EMIT changed();
}

}  // namespace talmo
