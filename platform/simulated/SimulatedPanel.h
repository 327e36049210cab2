#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Panel.h"
#include "platform/simulated/SimulatedEventMonitors.h"

namespace talmo {

/// A panel that records what becomes of it, and what a person can do to it. Main thread only.
class SimulatedPanel : public Panel {
 public:
  /// One call of `setFrame`.
  struct FrameChange {
    Rect frame;
    bool isAnimated = false;
    /// Whether the panel was on screen by then.
    bool isVisible = false;

    bool operator==(const FrameChange&) const = default;
  };

  /// Stands in `panels` while it lives. All live for longer.
  SimulatedPanel(std::vector<SimulatedPanel*>& panels, SimulatedApplication& application,
                 SimulatedEventMonitors& monitors);
  ~SimulatedPanel() override;
  SimulatedPanel(const SimulatedPanel&) = delete;
  SimulatedPanel& operator=(const SimulatedPanel&) = delete;

  WindowIdentifier window() const override { return window_; }
  void setContent(const View& content) override;
  Rect frame() const override { return frame_; }
  void setFrame(const Rect& frame, bool isAnimated) override;
  void invalidateShadow() override { ++shadowInvalidations_; }
  bool isVisible() const override { return isVisible_; }
  void makeKeyAndOrderFront() override;
  void orderOut() override;
  void setOnSizeChange(std::function<void(Size)> callback) override;
  void setOnCancel(std::function<void()> callback) override;
  void setOnResignKey(std::function<void()> callback) override;

  // What has become of it.

  const View& content() const { return content_; }
  /// How often it got content.
  int contentChanges() const { return contentChanges_; }
  const std::vector<FrameChange>& frameChanges() const { return frameChanges_; }
  int shadowInvalidations() const { return shadowInvalidations_; }
  bool isKey() const { return isKey_; }

  /// The ideal size of a content: as wide as any, and 20 points for every line of it.
  static Size idealSize(const View& content);

  // What the person does.

  /// Presses a key while the panel has the keys; returns whether the panel got it.
  bool press(std::uint16_t keyCode, std::uint64_t modifiers = 0);
  /// Clicks a button of the content; returns whether the click got there.
  bool click(const View& button);
  /// Has another window get the keys.
  void resignKey();

 private:
  std::vector<SimulatedPanel*>& panels_;
  SimulatedEventMonitors& monitors_;
  const WindowIdentifier window_;
  View content_;
  Size size_;
  Rect frame_;
  bool isVisible_ = false;
  bool isKey_ = false;
  std::function<void(Size)> onSizeChange_;
  std::function<void()> onCancel_;
  std::function<void()> onResignKey_;
  int contentChanges_ = 0;
  int shadowInvalidations_ = 0;
  std::vector<FrameChange> frameChanges_;
};

}  // namespace talmo
