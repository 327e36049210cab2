#include "platform/linux/interface/Toolkit.h"

#include <clocale>
#include <cstdlib>
#include <QApplication>
#include <QObject>
#include <QSessionManager>
#include <QString>

#include "platform/linux/x11/XConnection.h"

namespace talmo {
namespace {

// The toolkit wants them changeable.
std::array<char, 6> programName{"talmo"};
std::array<char, 10> platformOption{"-platform"};
std::array<char, 4> platformName{"xcb"};

}  // namespace

std::unique_ptr<Toolkit> Toolkit::connect() {
  if (!XConnection::open()) return nullptr;
  return std::unique_ptr<Toolkit>(new Toolkit);
}

Toolkit::Toolkit() {
  arguments_.at(static_cast<std::size_t>(count_++)) = programName.data();
  if (std::getenv("QT_QPA_PLATFORM") == nullptr) {
    arguments_.at(static_cast<std::size_t>(count_++)) = platformOption.data();
    arguments_.at(static_cast<std::size_t>(count_++)) = platformName.data();
  }
  application_ = std::make_unique<QApplication>(count_, arguments_.data());
  // It has taken the person's locale for the C library too, with which numbers have commas.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("talmo"));
  QApplication::setApplicationDisplayName(QStringLiteral("Talmo"));
  QApplication::setDesktopFileName(QStringLiteral("nl.brelm.Talmo"));
  QApplication::setQuitOnLastWindowClosed(false);
  // Whether it starts with the session is the person's choice, not the session manager's.
  QObject::connect(
      application_.get(), &QGuiApplication::saveStateRequest,
      [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); });
}

Toolkit::~Toolkit() = default;

}  // namespace talmo
