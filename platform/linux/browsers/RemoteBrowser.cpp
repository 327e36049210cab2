#include "platform/linux/browsers/RemoteBrowser.h"

#include <algorithm>
#include <utility>

#include "platform/linux/applications/LinuxWindows.h"
#include "platform/linux/browsers/WindowOrder.h"

namespace talmo {
namespace {

using Json = nlohmann::json;
using Kind = BrowserFailure::Kind;
using Text = std::optional<std::string>;

/// Takes the failure out of a result, if it is one.
template <class Answer>
std::optional<BrowserFailure> failureOf(const BrowserResult<Answer>& result) {
  const auto* failure = std::get_if<BrowserFailure>(&result);
  return failure == nullptr ? std::nullopt : std::optional(*failure);
}

/// A member that is a text; empty when there is none.
std::string textAt(const Json& object, const char* name) {
  if (!object.is_object()) return {};
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

/// What a script came to, as text.
Text textOf(const Json& evaluation) {
  if (evaluation.contains("exceptionDetails")) return std::nullopt;
  const auto result = evaluation.find("result");
  if (result == evaluation.end() || !result->is_object()) return std::nullopt;
  // NaN, -0 and big integers have no place in JSON.
  if (std::string text = textAt(*result, "unserializableValue"); !text.empty()) return text;
  const auto value = result->find("value");
  if (value == result->end() || value->is_null()) return std::nullopt;
  if (value->is_string()) return value->get<std::string>();
  if (std::string text = textAt(*result, "description"); !text.empty()) return text;
  return value->dump(-1, ' ', false, Json::error_handler_t::replace);
}

struct Tab {
  std::string id;
  std::string title;
};

std::vector<Tab> tabsIn(const Json& answer) {
  std::vector<Tab> tabs;
  const auto targets = answer.find("targetInfos");
  if (targets == answer.end() || !targets->is_array()) return tabs;
  for (const Json& target : *targets) {
    if (tabs.size() == RemoteBrowser::mostTabs) break;
    Tab tab{.id = textAt(target, "targetId"), .title = textAt(target, "title")};
    if (textAt(target, "type") == "page" && !tab.id.empty()) tabs.push_back(std::move(tab));
  }
  return tabs;
}

DebuggingRequest evaluation(const std::string& source, const std::string& session) {
  // Without a gesture a page may not start to play.
  return {.method = "Runtime.evaluate",
          .parameters = {{"expression", source}, {"returnByValue", true}, {"userGesture", true}},
          .session = session};
}

/// The tabs by the windows that they are in; those that are in none, as a page that is being
/// loaded ahead, are left out.
std::vector<TitledWindow> grouped(std::vector<Tab> tabs,
                                  const std::vector<BrowserResult<Json>>& answers) {
  std::vector<TitledWindow> windows;
  for (std::size_t index = 0; index < tabs.size(); ++index) {
    const auto* answer = std::get_if<Json>(&answers[index]);
    if (answer == nullptr) continue;
    const auto number = answer->find("windowId");
    if (number == answer->end() || !number->is_number_integer()) continue;
    const std::string id = number->dump();
    auto window = std::ranges::find(
        windows, id, [](const TitledWindow& one) -> const auto& { return one.window.id; });
    if (window == windows.end()) {
      window = windows.insert(windows.end(), {.window = {.id = id, .tabs = {}}, .titles = {}});
    }
    window->window.tabs.push_back(std::move(tabs[index].id));
    window->titles.push_back(std::move(tabs[index].title));
  }
  return windows;
}

}  // namespace

RemoteBrowser::RemoteBrowser(std::vector<BrowserInstance> instances, Duration patience)
    : instances_(std::move(instances)), patience_(patience) {}

std::optional<BrowserFailure> RemoteBrowser::connect(Uptime deadline) {
  if (connection_ && connection_->isOpen()) return std::nullopt;
  connection_.reset();
  sessions_.clear();
  if (instances_.empty()) {
    return BrowserFailure{.kind = Kind::gone, .message = "the browser does not run"};
  }
  for (const BrowserInstance& instance : instances_) {
    if (!instance.socket) continue;
    std::unique_ptr<DebuggingSocket> socket = DebuggingSocket::connect(*instance.socket, deadline);
    if (!socket) continue;
    connection_ = std::make_unique<DebuggingConnection>(std::move(socket));
    process_ = instance.process;
    return std::nullopt;
  }
  if (std::chrono::steady_clock::now() >= deadline) {
    return BrowserFailure{.kind = Kind::timedOut, .message = "the browser does not answer"};
  }
  return BrowserFailure{.kind = Kind::refused, .message = "the browser has no debugging socket"};
}

BrowserResult<Json> RemoteBrowser::call(const DebuggingRequest& request, Uptime deadline) {
  if (auto failure = connect(deadline)) return *failure;
  return connection_->call(request, deadline);
}

BrowserResult<std::vector<BrowserWindow>> RemoteBrowser::windows() {
  return windows(deadline());
}

BrowserResult<std::vector<BrowserWindow>> RemoteBrowser::windows(Uptime deadline) {
  const BrowserResult<Json> targets = call({.method = "Target.getTargets"}, deadline);
  if (auto failure = failureOf(targets)) return *failure;
  std::vector<Tab> tabs = tabsIn(std::get<Json>(targets));
  std::vector<DebuggingRequest> requests;
  requests.reserve(tabs.size());
  for (const Tab& tab : tabs) {
    requests.push_back(
        {.method = "Browser.getWindowForTarget", .parameters = {{"targetId", tab.id}}});
  }
  const auto answers = connection_->callAll(requests, deadline);
  for (const auto& answer : answers) {
    // A tab may be closed meanwhile; but that there is no answer is no answer for the whole.
    const auto failure = failureOf(answer);
    if (failure && (failure->kind == Kind::timedOut || !connection_->isOpen())) return *failure;
  }
  std::vector<BrowserWindow> found =
      inOrderOfNames(grouped(std::move(tabs), answers), LinuxWindows::namesFrontToBack(process_));
  const auto front = std::ranges::find(found, frontWindow_, &BrowserWindow::id);
  if (front != found.end()) std::rotate(found.begin(), front, front + 1);
  return found;
}

BrowserResult<Text> RemoteBrowser::detail(const std::string& tab, const char* name) {
  const BrowserResult<Json> answer =
      call({.method = "Target.getTargetInfo", .parameters = {{"targetId", tab}}}, deadline());
  if (auto failure = failureOf(answer)) return *failure;
  const Json& object = std::get<Json>(answer);
  const auto target = object.find("targetInfo");
  std::string text = target == object.end() ? std::string() : textAt(*target, name);
  return text.empty() ? Text() : Text(std::move(text));
}

BrowserResult<Text> RemoteBrowser::url(const std::string& tab) {
  return detail(tab, "url");
}

BrowserResult<Text> RemoteBrowser::title(const std::string& tab) {
  return detail(tab, "title");
}

BrowserResult<std::string> RemoteBrowser::session(const std::string& tab, Uptime deadline) {
  if (auto failure = connect(deadline)) return *failure;
  const auto known = sessions_.find(tab);
  if (known != sessions_.end()) return known->second;
  const BrowserResult<Json> answer = call(
      {.method = "Target.attachToTarget", .parameters = {{"targetId", tab}, {"flatten", true}}},
      deadline);
  if (auto failure = failureOf(answer)) return *failure;
  std::string id = textAt(std::get<Json>(answer), "sessionId");
  if (id.empty()) return BrowserFailure{.kind = Kind::refused, .message = "no session"};
  sessions_[tab] = id;
  return id;
}

BrowserResult<Text> RemoteBrowser::runJavaScript(const std::string& tab,
                                                 const std::string& source) {
  const Uptime until = deadline();
  const BrowserResult<std::string> page = session(tab, until);
  if (auto failure = failureOf(page)) return *failure;
  const BrowserResult<Json> answer = call(evaluation(source, std::get<std::string>(page)), until);
  if (auto failure = failureOf(answer)) {
    sessions_.erase(tab);
    return *failure;
  }
  return textOf(std::get<Json>(answer));
}

std::string RemoteBrowser::shownTab(const BrowserWindow& window, Uptime deadline) {
  if (window.tabs.size() == 1) return window.tabs.front();
  if (std::ranges::find(window.tabs, selectedTab_) != window.tabs.end()) return selectedTab_;
  std::vector<DebuggingRequest> requests;
  std::vector<std::string> asked;
  for (const std::string& tab : window.tabs) {
    const BrowserResult<std::string> page = session(tab, deadline);
    if (failureOf(page)) continue;
    requests.push_back(evaluation("document.visibilityState", std::get<std::string>(page)));
    asked.push_back(tab);
  }
  // Of a connection that has ended meanwhile there is nothing to be learnt.
  if (!connection_) return window.tabs.front();
  const auto answers = connection_->callAll(requests, deadline);
  for (std::size_t index = 0; index < asked.size(); ++index) {
    const auto* answer = std::get_if<Json>(&answers[index]);
    if (answer != nullptr && textOf(*answer) == "visible") return asked[index];
  }
  return window.tabs.front();
}

std::optional<BrowserFailure> RemoteBrowser::activateTab(const std::string& tab, Uptime deadline) {
  return failureOf(
      call({.method = "Target.activateTarget", .parameters = {{"targetId", tab}}}, deadline));
}

std::optional<BrowserFailure> RemoteBrowser::selectTab(const std::string& tab) {
  auto failure = activateTab(tab, deadline());
  if (!failure) selectedTab_ = tab;
  return failure;
}

std::optional<BrowserFailure> RemoteBrowser::bringToFront(const std::string& window) {
  return bringToFront(window, deadline());
}

std::optional<BrowserFailure> RemoteBrowser::bringToFront(const std::string& window,
                                                          Uptime deadline) {
  const auto found = windows(deadline);
  if (auto failure = failureOf(found)) return failure;
  const auto& all = std::get<std::vector<BrowserWindow>>(found);
  const auto meant = std::ranges::find(all, window, &BrowserWindow::id);
  if (meant == all.end()) {
    return BrowserFailure{.kind = Kind::gone, .message = "there is no such window"};
  }
  // Half of the time for pages that may not answer.
  const Uptime now = std::chrono::steady_clock::now();
  const std::string tab = shownTab(*meant, now + (deadline - now) / 2);
  if (auto failure = activateTab(tab, deadline)) return failure;
  frontWindow_ = window;
  return std::nullopt;
}

std::optional<BrowserFailure> RemoteBrowser::activate() {
  const Uptime until = deadline();
  const auto found = windows(until);
  if (auto failure = failureOf(found)) return failure;
  const auto& all = std::get<std::vector<BrowserWindow>>(found);
  if (all.empty()) return BrowserFailure{.kind = Kind::gone, .message = "it has no window"};
  return bringToFront(all.front().id, until);
}

}  // namespace talmo
