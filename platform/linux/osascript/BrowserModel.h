#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/linux/osascript/BrowserFailure.h"
#include "platform/linux/osascript/BrowserWindow.h"

namespace talmo {

/// What the browser answered, or why it did not.
template <typename Answer>
using BrowserResult = std::variant<Answer, BrowserFailure>;

/// One running browser, as scripts see it. Every call asks the browser afresh, waits for its answer
/// for a bounded time and never throws. Texts are UTF-8. One thread.
class BrowserModel {
 public:
  virtual ~BrowserModel() = default;

  /// The windows, frontmost first.
  virtual BrowserResult<std::vector<BrowserWindow>> windows() = 0;

  /// The address that the tab shows now, and its title; none where it has none.
  virtual BrowserResult<std::optional<std::string>> url(const std::string& tab) = 0;
  virtual BrowserResult<std::optional<std::string>> title(const std::string& tab) = 0;

  /// Runs the source in the tab's page as if a person had caused it, and returns what it comes to
  /// as text; none where that is nothing or where the source throws.
  virtual BrowserResult<std::optional<std::string>> runJavaScript(const std::string& tab,
                                                                  const std::string& source) = 0;

  /// Brings the browser before all other applications, with its windows in their order.
  virtual std::optional<BrowserFailure> activate() = 0;
  /// Makes the tab the one that its window shows; the window may come to front with it.
  virtual std::optional<BrowserFailure> selectTab(const std::string& tab) = 0;
  /// Brings the window before the browser's other windows.
  virtual std::optional<BrowserFailure> bringToFront(const std::string& window) = 0;
};

}  // namespace talmo
