#include "bench/PageWatch.h"

#include <optional>
#include <stdexcept>

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Json = nlohmann::json;

constexpr Clock::duration patience = 10s;

/// `report` is what the page tells the site with. It takes time, as each report is a connection.
constexpr const char* takeover =
    "report = (page, event) => tellWatch(event);"
    "HTMLMediaElement.prototype.play = async () => {};"
    "HTMLMediaElement.prototype.pause = () => {};";

Json evaluation(const std::string& script) {
  return {{"expression", script}, {"userGesture", true}};
}

}  // namespace

PageWatch::PageWatch(const DebuggingAddress& address, const std::string& tab)
    : socket_(DebuggingSocket::connect(address, Clock::now() + patience)) {
  if (!socket_) throw std::runtime_error("the browser takes no connection");
  session_ = ask("Target.attachToTarget", {{"targetId", tab}, {"flatten", true}}).at("sessionId");
  ask("Runtime.enable", Json::object());
  ask("Runtime.addBinding", {{"name", "tellWatch"}});
  if (const Json result = ask("Runtime.evaluate", evaluation(takeover));
      result.contains("exceptionDetails")) {
    throw std::runtime_error("the page cannot be watched: " + result.dump());
  }
}

void PageWatch::click(const std::string& selector) {
  send("Runtime.evaluate", evaluation("document.querySelector('" + selector + "').click()"));
}

Clock::time_point PageWatch::waitFor(const std::string& event) {
  for (;;) {
    const std::string text = receive();
    const auto arrival = Clock::now();
    const Json message = Json::parse(text);
    if (message.value("method", "") == "Runtime.bindingCalled" &&
        message.at("params").at("payload") == event) {
      return arrival;
    }
  }
}

void PageWatch::send(const std::string& method, const Json& parameters) {
  Json request{{"id", ++lastID_}, {"method", method}, {"params", parameters}};
  if (!session_.empty()) request["sessionId"] = session_;
  if (!socket_->send(request.dump(), Clock::now() + patience)) {
    throw std::runtime_error("the browser takes no command");
  }
}

Json PageWatch::ask(const std::string& method, const Json& parameters) {
  send(method, parameters);
  for (;;) {
    const Json message = Json::parse(receive());
    if (message.value("id", std::int64_t{0}) == lastID_) return message.at("result");
  }
}

std::string PageWatch::receive() {
  std::optional<std::string> text = socket_->receive(Clock::now() + patience);
  if (!text) throw std::runtime_error("the page tells nothing");
  return *std::move(text);
}

}  // namespace talmo::test
