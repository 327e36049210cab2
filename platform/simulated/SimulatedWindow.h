#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/simulated/SimulatedApplication.h"
#include "platform/Window.h"
#include "platform/WindowParameters.h"

namespace talmo {

/// A window that records what becomes of it, and what a person can do to it. Main thread only.
class SimulatedWindow : public Window {
 public:
  /// Stands in `windows` while it lives. Both live for longer.
  SimulatedWindow(std::vector<SimulatedWindow*>& windows, const SimulatedApplication& application,
                  WindowParameters parameters);
  ~SimulatedWindow() override;
  SimulatedWindow(const SimulatedWindow&) = delete;
  SimulatedWindow& operator=(const SimulatedWindow&) = delete;

  void setContent(const View& content) override;
  void center() override;
  bool isVisible() const override { return isVisible_; }
  void makeKeyAndOrderFront() override;
  void close() override;
  void setOnWillClose(std::function<void()> callback) override {
    onWillClose_ = std::move(callback);
  }

  // What has become of it.

  const WindowParameters& parameters() const { return parameters_; }
  const View& content() const { return content_; }
  /// How often it got content.
  int contentChanges() const { return contentChanges_; }
  /// What was asked of it, in order: "center", "activate" (when it came to the front of an
  /// application that had been activated since it was last asked something), "front", "close".
  const std::vector<std::string>& calls() const { return calls_; }

  // What the person does.

  /// Presses a button of the content; returns whether it is there.
  bool press(const std::string& identity);

 private:
  std::vector<SimulatedWindow*>& windows_;
  const SimulatedApplication& application_;
  const WindowParameters parameters_;
  View content_;
  int contentChanges_ = 0;
  int activationsSeen_;
  bool isVisible_ = false;
  std::function<void()> onWillClose_;
  std::vector<std::string> calls_;
};

}  // namespace talmo
