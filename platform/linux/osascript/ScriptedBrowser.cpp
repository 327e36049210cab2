#include "platform/linux/osascript/ScriptedBrowser.h"

#include <algorithm>
#include <cstddef>

#include "platform/linux/osascript/ScriptValue.h"

namespace talmo {
namespace {

std::string cannot(const std::string& what) {
  return "Can\u2019t " + what + ".";
}

}  // namespace

std::vector<BrowserWindow> ScriptedBrowser::windows(const ScriptRange& range) {
  return answer(model_->windows(), "get every window", range);
}

ScriptedBrowser::Text ScriptedBrowser::url(const std::string& tab, const ScriptRange& range) {
  return answer(model_->url(tab), "get URL of " + tabText(tab), range);
}

ScriptedBrowser::Text ScriptedBrowser::title(const std::string& tab, const ScriptRange& range) {
  return answer(model_->title(tab), "get title of " + tabText(tab), range);
}

ScriptedBrowser::Text ScriptedBrowser::runJavaScript(const std::string& tab,
                                                     const std::string& source,
                                                     const ScriptRange& range) {
  return answer(model_->runJavaScript(tab, source), "get " + tabText(tab), range);
}

void ScriptedBrowser::activate(const ScriptRange& range) {
  check(model_->activate(), "activate", range);
}

void ScriptedBrowser::selectTab(const BrowserWindow& window, const std::string& tab,
                                const ScriptRange& range) {
  const std::string what = "set current tab of " + windowText(window.id) + " to " + tabText(tab);
  if (std::ranges::find(window.tabs, tab) == window.tabs.end()) {
    throw said(ScriptError::writeDenied, cannot(what), range);
  }
  check(model_->selectTab(tab), what, range);
}

void ScriptedBrowser::selectTab(const BrowserWindow& window, std::int64_t index,
                                const ScriptRange& range) {
  const std::string what =
      "set active tab index of " + windowText(window.id) + " to " + std::to_string(index);
  if (index < 1 || static_cast<std::uint64_t>(index) > window.tabs.size()) {
    throw said(ScriptError::illegalIndex, cannot(what), range);
  }
  check(model_->selectTab(window.tabs[static_cast<std::size_t>(index) - 1]), what, range);
}

void ScriptedBrowser::bringToFront(const BrowserWindow& window, const ScriptRange& range) {
  check(model_->bringToFront(window.id), "set index of " + windowText(window.id) + " to 1", range);
}

template <typename Answer>
Answer ScriptedBrowser::answer(BrowserResult<Answer> result, const std::string& what,
                               const ScriptRange& range) const {
  if (const auto* failure = std::get_if<BrowserFailure>(&result)) {
    throw failed(*failure, what, range);
  }
  return std::move(std::get<Answer>(result));
}

void ScriptedBrowser::check(const std::optional<BrowserFailure>& failure, const std::string& what,
                            const ScriptRange& range) const {
  if (failure) throw failed(*failure, what, range);
}

ScriptError ScriptedBrowser::failed(const BrowserFailure& failure, const std::string& what,
                                    const ScriptRange& range) const {
  switch (failure.kind) {
    case BrowserFailure::Kind::gone:
      break;
    case BrowserFailure::Kind::refused:
      return said(ScriptError::noPrivilege,
                  failure.message.empty() ? "A privilege violation occurred." : failure.message,
                  range);
    case BrowserFailure::Kind::timedOut:
      return said(ScriptError::timeout, "AppleEvent timed out.", range);
  }
  return said(ScriptError::noSuchObject, cannot(what), range);
}

ScriptError ScriptedBrowser::said(int number, const std::string& message,
                                  const ScriptRange& range) const {
  return ScriptError::execution(number, bundleID_ + " got an error: " + message, range);
}

}  // namespace talmo
