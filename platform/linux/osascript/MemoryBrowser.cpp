#include "platform/linux/osascript/MemoryBrowser.h"

#include <algorithm>
#include <utility>

namespace talmo {
namespace {

const BrowserFailure gone{.kind = BrowserFailure::Kind::gone};

}  // namespace

std::string MemoryBrowser::openWindow() {
  windows_.push_back({.id = std::to_string(++lastID_)});
  return windows_.back().id;
}

std::string MemoryBrowser::openTab(const std::string& window, std::optional<std::string> url,
                                   std::optional<std::string> title) {
  const auto found = std::ranges::find(windows_, window, &BrowserWindow::id);
  std::string id = std::to_string(++lastID_);
  found->tabs.push_back(id);
  tabs_[id] = {.url = std::move(url), .title = std::move(title)};
  return id;
}

void MemoryBrowser::closeTab(const std::string& tab) {
  tabs_.erase(tab);
  for (BrowserWindow& window : windows_) {
    if (std::erase(window.tabs, tab) == 0 || !window.tabs.empty()) continue;
    closeWindow(std::string(window.id));
    return;
  }
}

void MemoryBrowser::closeWindow(const std::string& window) {
  const auto found = std::ranges::find(windows_, window, &BrowserWindow::id);
  if (found == windows_.end()) return;
  for (const std::string& tab : found->tabs) tabs_.erase(tab);
  windows_.erase(found);
}

void MemoryBrowser::setJavaScriptResult(const std::string& tab, std::string result) {
  tabs_.at(tab).javaScriptResult = std::move(result);
}

void MemoryBrowser::failUrl(const std::string& tab, BrowserFailure failure) {
  tabs_.at(tab).urlFailure = std::move(failure);
}

void MemoryBrowser::failTitle(const std::string& tab, BrowserFailure failure) {
  tabs_.at(tab).titleFailure = std::move(failure);
}

void MemoryBrowser::failJavaScript(BrowserFailure failure) {
  javaScriptFailure_ = std::move(failure);
}

void MemoryBrowser::fail(BrowserFailure failure) {
  failure_ = std::move(failure);
}

void MemoryBrowser::onRequest(std::function<void(const std::string&)> handler) {
  onRequest_ = std::move(handler);
}

std::optional<std::string> MemoryBrowser::shownTab(const std::string& window) const {
  const auto found = std::ranges::find(windows_, window, &BrowserWindow::id);
  if (found == windows_.end() || found->tabs.empty()) return std::nullopt;
  const auto shown = shownTabs_.find(window);
  const bool isThere = shown != shownTabs_.end() &&
                       std::ranges::find(found->tabs, shown->second) != found->tabs.end();
  return isThere ? shown->second : found->tabs.front();
}

BrowserResult<std::vector<BrowserWindow>> MemoryBrowser::windows() {
  noteRequest("windows");
  if (failure_) return *failure_;
  return windows_;
}

BrowserResult<std::optional<std::string>> MemoryBrowser::url(const std::string& tab) {
  noteRequest("url " + tab);
  if (failure_) return *failure_;
  const auto found = tabs_.find(tab);
  if (found == tabs_.end()) return gone;
  if (found->second.urlFailure) return *found->second.urlFailure;
  return found->second.url;
}

BrowserResult<std::optional<std::string>> MemoryBrowser::title(const std::string& tab) {
  noteRequest("title " + tab);
  if (failure_) return *failure_;
  const auto found = tabs_.find(tab);
  if (found == tabs_.end()) return gone;
  if (found->second.titleFailure) return *found->second.titleFailure;
  return found->second.title;
}

BrowserResult<std::optional<std::string>> MemoryBrowser::runJavaScript(const std::string& tab,
                                                                       const std::string& source) {
  const std::string effect = "run in tab " + tab + ": " + source;
  noteRequest(effect);
  if (failure_) return *failure_;
  const auto found = tabs_.find(tab);
  if (found == tabs_.end()) return gone;
  if (javaScriptFailure_) return *javaScriptFailure_;
  effects_.push_back(effect);
  return found->second.javaScriptResult;
}

std::optional<BrowserFailure> MemoryBrowser::activate() {
  noteRequest("activate");
  if (failure_) return failure_;
  effects_.emplace_back("activate");
  isActive_ = true;
  return std::nullopt;
}

std::optional<BrowserFailure> MemoryBrowser::selectTab(const std::string& tab) {
  const std::string effect = "select tab " + tab;
  noteRequest(effect);
  if (failure_) return failure_;
  const BrowserWindow* const window = windowWith(tab);
  if (window == nullptr) return gone;
  effects_.push_back(effect);
  shownTabs_[window->id] = tab;
  return std::nullopt;
}

std::optional<BrowserFailure> MemoryBrowser::bringToFront(const std::string& window) {
  const std::string effect = "front window " + window;
  noteRequest(effect);
  if (failure_) return failure_;
  const auto found = std::ranges::find(windows_, window, &BrowserWindow::id);
  if (found == windows_.end()) return gone;
  effects_.push_back(effect);
  std::rotate(windows_.begin(), found, found + 1);
  return std::nullopt;
}

void MemoryBrowser::noteRequest(const std::string& request) {
  ++requestCount_;
  if (onRequest_) onRequest_(request);
}

const BrowserWindow* MemoryBrowser::windowWith(const std::string& tab) const {
  for (const BrowserWindow& window : windows_) {
    if (std::ranges::find(window.tabs, tab) != window.tabs.end()) return &window;
  }
  return nullptr;
}

}  // namespace talmo
