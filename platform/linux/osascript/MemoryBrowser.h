#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/osascript/BrowserModel.h"

namespace talmo {

/// A browser in memory, for tests. It does what it is asked, writes down what was done to it, and
/// fails where it was told to.
class MemoryBrowser : public BrowserModel {
 public:
  /// Opens a window behind the others, and a tab behind the window's others; the names of both are
  /// numbers from 1.
  std::string openWindow();
  std::string openTab(const std::string& window, std::optional<std::string> url,
                      std::optional<std::string> title);
  /// With its window, if that has no other.
  void closeTab(const std::string& tab);
  /// With its tabs.
  void closeWindow(const std::string& window);

  /// What JavaScript in the tab comes to; nothing at first.
  void setJavaScriptResult(const std::string& tab, std::string result);
  /// From now on the address or the title cannot be read, or JavaScript cannot be run.
  void failUrl(const std::string& tab, BrowserFailure failure);
  void failTitle(const std::string& tab, BrowserFailure failure);
  void failJavaScript(BrowserFailure failure);
  /// Everything fails from now on.
  void fail(BrowserFailure failure);

  /// Called before every answer, with what is asked: "windows", "url 1", "title 1" or an effect
  /// (see below). It may change the browser.
  void onRequest(std::function<void(const std::string&)> handler);

  /// What was done, in order: "activate", "select tab 1", "front window 1", "run in tab 1: source".
  const std::vector<std::string>& effects() const { return effects_; }
  /// How often anything was asked.
  std::size_t requestCount() const { return requestCount_; }
  bool isActive() const { return isActive_; }
  /// The tab that the window shows: its first one until another is selected.
  std::optional<std::string> shownTab(const std::string& window) const;

  BrowserResult<std::vector<BrowserWindow>> windows() override;
  BrowserResult<std::optional<std::string>> url(const std::string& tab) override;
  BrowserResult<std::optional<std::string>> title(const std::string& tab) override;
  BrowserResult<std::optional<std::string>> runJavaScript(const std::string& tab,
                                                          const std::string& source) override;
  std::optional<BrowserFailure> activate() override;
  std::optional<BrowserFailure> selectTab(const std::string& tab) override;
  std::optional<BrowserFailure> bringToFront(const std::string& window) override;

 private:
  struct Tab {
    std::optional<std::string> url;
    std::optional<std::string> title;
    std::optional<std::string> javaScriptResult;
    std::optional<BrowserFailure> urlFailure;
    std::optional<BrowserFailure> titleFailure;
  };

  void noteRequest(const std::string& request);
  const BrowserWindow* windowWith(const std::string& tab) const;

  int lastID_ = 0;
  std::vector<BrowserWindow> windows_;
  std::map<std::string, Tab> tabs_;
  std::map<std::string, std::string> shownTabs_;
  bool isActive_ = false;
  std::optional<BrowserFailure> javaScriptFailure_;
  std::optional<BrowserFailure> failure_;
  std::function<void(const std::string&)> onRequest_;
  std::size_t requestCount_ = 0;
  std::vector<std::string> effects_;
};

}  // namespace talmo
