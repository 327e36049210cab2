#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <QObject>

#include "platform/EventMonitors.h"
#include "platform/linux/interface/GlobalPresses.h"
#include "platform/linux/interface/LinuxOwnApplication.h"

namespace talmo {

/// Local monitors see what the toolkit is about to give to a window of ours, except to menus, which
/// are a world of their own while they are open; so are global ones then. Global monitors are told
/// of presses only. Without the toolkit none ever calls.
class LinuxEventMonitors : public QObject, public EventMonitors {
 public:
  /// `application` lives longer.
  explicit LinuxEventMonitors(LinuxOwnApplication& application) : application_(application) {}

  Token addGlobalMonitor(std::uint64_t mask,
                         std::function<void(const InterfaceEvent&)> handler) override;
  Token addLocalMonitor(std::uint64_t mask,
                        std::function<bool(const InterfaceEvent&)> handler) override;
  void removeMonitor(Token token) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  template <class Result>
  struct Monitor {
    std::uint64_t mask = 0;
    std::function<Result(const InterfaceEvent&)> handler;
  };

  /// Calls the handlers of all local monitors; whether one swallowed the event.
  bool tellLocal(const InterfaceEvent& event);
  void tellGlobal(InterfaceEvent::Type type);

  LinuxOwnApplication& application_;
  Token lastToken_ = 0;
  std::map<Token, Monitor<bool>> local_;
  std::map<Token, Monitor<void>> global_;
  std::optional<GlobalPresses> presses_;
};

}  // namespace talmo
