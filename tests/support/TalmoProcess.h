#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestProcess.h"

namespace talmo::test {

/// The built Talmo, running on a private desktop.
class TalmoProcess {
 public:
  /// Writes Talmo's settings: the first run is over, and the selected target is `id`, or there is
  /// no selection.
  static void select(const PrivateDesktop& desktop, const std::optional<std::string>& id);

  /// Where Talmo keeps its settings on `desktop`.
  static std::filesystem::path settingsFile(const PrivateDesktop& desktop);

  /// Starts Talmo and waits until it has set its routing, which is after it took the keys. Throws
  /// when it does not come so far.
  TalmoProcess(const PrivateDesktop& desktop, const std::filesystem::path& program);

  TestProcess& process() { return *process_; }

  /// What it logged so far.
  std::string log() const { return process_->output(); }

  /// The lines that it logged and that contain `text`.
  std::vector<std::string> lines(const std::string& text) const;

  /// Waits until at least `count` of its log lines contain `text`.
  bool waitForLines(const std::string& text, std::size_t count = 1) const;

 private:
  std::unique_ptr<TestProcess> process_;
};

}  // namespace talmo::test
