#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedEventMonitors.h"
#include "platform/simulated/SimulatedScreen.h"
#include "platform/StatusItem.h"

namespace talmo {

/// A status item that tells what it shows, and a person who clicks on it. Main thread only.
class SimulatedStatusItem : public StatusItem {
 public:
  /// Stands in `items` while it lives. All live for longer.
  SimulatedStatusItem(std::vector<SimulatedStatusItem*>& items, const SimulatedScreen& screen,
                      SimulatedApplication& application, SimulatedEventMonitors& monitors,
                      double length);
  ~SimulatedStatusItem() override;
  SimulatedStatusItem(const SimulatedStatusItem&) = delete;
  SimulatedStatusItem& operator=(const SimulatedStatusItem&) = delete;

  std::shared_ptr<StatusButton> button() override;
  void setImage(const StatusImage& image) override { image_ = image; }
  void setAlpha(double alpha) override { alpha_ = alpha; }
  void setAction(std::uint64_t mask, std::function<void()> action) override;
  void setMenu(std::optional<Menu> menu) override { menu_ = std::move(menu); }
  void performClick() override;

  // What it shows.

  double length() const { return length_; }
  const StatusImage& image() const { return image_; }
  double alpha() const { return alpha_; }
  bool hasMenu() const { return menu_.has_value(); }
  /// The menu that has dropped down; nothing when none has.
  const std::optional<Menu>& openMenu() const { return openMenu_; }

  // What the person does.

  void leftClick();
  void rightClick();
  /// Chooses from the menu that has dropped down; returns whether it has such an item.
  bool choose(const std::string& title);
  /// Closes the menu that has dropped down.
  void dismissMenu();

 private:
  class Button;

  void send(InterfaceEvent::Type type);

  std::vector<SimulatedStatusItem*>& items_;
  SimulatedEventMonitors& monitors_;
  const double length_;
  const WindowIdentifier window_;
  const std::shared_ptr<Button> button_;
  StatusImage image_;
  double alpha_ = 1;
  std::uint64_t mask_ = 0;
  std::function<void()> action_;
  std::optional<Menu> menu_;
  std::optional<Menu> openMenu_;
};

}  // namespace talmo
