#include "tests/support/BrowserTabs.h"

#include <chrono>
#include <httplib.h>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "tests/support/UrlEscaped.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

std::vector<BrowserTabs::Tab> BrowserTabs::all() const {
  std::vector<Tab> tabs;
  for (const auto& target : nlohmann::json::parse(ask("/json/list", false))) {
    if (target.at("type") != "page") continue;
    tabs.push_back({target.at("id"), target.at("url"), target.at("title")});
  }
  return tabs;
}

std::string BrowserTabs::open(const std::string& address) const {
  return nlohmann::json::parse(ask("/json/new?" + urlEscaped(address), true)).at("id");
}

void BrowserTabs::activate(const std::string& id) const {
  ask("/json/activate/" + id, false);
}

void BrowserTabs::close(const std::string& id) const {
  ask("/json/close/" + id, false);
}

void BrowserTabs::clear() const {
  const std::vector<Tab> old = all();
  open("about:blank");
  for (const Tab& tab : old) close(tab.id);
  if (!waitUntil([this] { return all().size() == 1; })) {
    throw std::runtime_error("the browser keeps its tabs");
  }
}

std::string BrowserTabs::ask(const std::string& request, bool isChange) const {
  httplib::Client client("127.0.0.1", port_);
  client.set_read_timeout(std::chrono::seconds(20));
  // The browser takes what opens a tab only by PUT.
  const httplib::Result answer = isChange ? client.Put(request) : client.Get(request);
  if (!answer || answer->status != 200) throw std::runtime_error("no answer to " + request);
  return answer->body;
}

}  // namespace talmo::test
