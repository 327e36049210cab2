#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/osascript/BrowserModel.h"
#include "platform/linux/osascript/ScriptError.h"

namespace talmo {

/// A browser that a script tells something. What it does not do is thrown as a `ScriptError` of the
/// stretch of the script that asked for it.
class ScriptedBrowser {
 public:
  using Text = std::optional<std::string>;

  ScriptedBrowser(std::string bundleID, std::shared_ptr<BrowserModel> model)
      : bundleID_(std::move(bundleID)), model_(std::move(model)) {}

  std::vector<BrowserWindow> windows(const ScriptRange& range);
  Text url(const std::string& tab, const ScriptRange& range);
  Text title(const std::string& tab, const ScriptRange& range);
  Text runJavaScript(const std::string& tab, const std::string& source, const ScriptRange& range);

  void activate(const ScriptRange& range);
  /// The tab is one of the window's, by its name or by its number from 1.
  void selectTab(const BrowserWindow& window, const std::string& tab, const ScriptRange& range);
  void selectTab(const BrowserWindow& window, std::int64_t index, const ScriptRange& range);
  void bringToFront(const BrowserWindow& window, const ScriptRange& range);

 private:
  template <typename Answer>
  Answer answer(BrowserResult<Answer> result, const std::string& what,
                const ScriptRange& range) const;
  void check(const std::optional<BrowserFailure>& failure, const std::string& what,
             const ScriptRange& range) const;
  ScriptError failed(const BrowserFailure& failure, const std::string& what,
                     const ScriptRange& range) const;
  ScriptError said(int number, const std::string& message, const ScriptRange& range) const;

  std::string bundleID_;
  std::shared_ptr<BrowserModel> model_;
};

}  // namespace talmo
