#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>

#include "platform/EventMonitors.h"
#include "platform/simulated/SimulatedApplication.h"

namespace talmo {

/// The person's clicks and keys, on their way to whom they are for. Main thread only.
class SimulatedEventMonitors : public EventMonitors {
 public:
  explicit SimulatedEventMonitors(SimulatedApplication& application) : application_(application) {}

  Token addGlobalMonitor(std::uint64_t mask,
                         std::function<void(const InterfaceEvent&)> handler) override;
  Token addLocalMonitor(std::uint64_t mask,
                        std::function<bool(const InterfaceEvent&)> handler) override;
  void removeMonitor(Token token) override;

  /// An event for this application: the local monitors see it, in the order in which they came,
  /// until one swallows it; then `destination` gets it. It is the current event all that time.
  /// Returns whether the destination got it.
  bool send(const InterfaceEvent& event, const std::function<void()>& destination);

  /// An event for another application, which the global monitors see.
  void sendElsewhere(const InterfaceEvent& event);

  std::size_t globalMonitors() const { return global_.size(); }
  std::size_t localMonitors() const { return local_.size(); }

 private:
  template <class Handler>
  struct Monitor {
    std::uint64_t mask = 0;
    Handler handler;
  };
  template <class Handler>
  using Monitors = std::map<Token, Monitor<Handler>>;

  SimulatedApplication& application_;
  Token lastToken_ = 0;
  Monitors<std::function<void(const InterfaceEvent&)>> global_;
  Monitors<std::function<bool(const InterfaceEvent&)>> local_;
};

}  // namespace talmo
