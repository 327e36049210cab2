#include "platform/linux/browsers/DebuggingConnection.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace talmo {
namespace {

using Json = nlohmann::json;
using Result = BrowserResult<Json>;

// What Chromium answers about a page or a session that it does not have (content/browser/devtools
// and third_party/inspector_protocol/crdtp/dispatch.h).
constexpr int invalidParameters = -32602;
constexpr int noSession = -32001;

BrowserFailure timedOut() {
  return {.kind = BrowserFailure::Kind::timedOut, .message = "the browser does not answer"};
}

BrowserFailure gone() {
  return {.kind = BrowserFailure::Kind::gone, .message = "the browser has ended the connection"};
}

bool isHexDigit(char letter) {
  return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'f') ||
         (letter >= 'A' && letter <= 'F');
}

/// The code unit that is escaped at `place` as \uXXXX; nothing when none is.
std::optional<unsigned> escapedUnit(const std::string& text, std::size_t place) {
  if (text.size() - place < 6 || text[place] != '\\' || text[place + 1] != 'u') return std::nullopt;
  for (std::size_t digit = place + 2; digit < place + 6; ++digit) {
    if (!isHexDigit(text[digit])) return std::nullopt;
  }
  return static_cast<unsigned>(std::stoul(text.substr(place + 2, 4), nullptr, 16));
}

/// A page's texts may hold halves of surrogate pairs, which the browser passes on and JSON for
/// UTF-8 has no place for: they become replacement characters.
void replaceLoneSurrogates(std::string& text) {
  const auto isHigh = [](unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; };
  const auto isLow = [](unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; };
  std::size_t place = 0;
  while ((place = text.find('\\', place)) != std::string::npos) {
    const std::optional<unsigned> unit = escapedUnit(text, place);
    if (!unit) {
      place += 2;
    } else if (!isHigh(*unit) && !isLow(*unit)) {
      place += 6;
    } else if (const auto next =
                   place + 6 <= text.size() ? escapedUnit(text, place + 6) : std::nullopt;
               isHigh(*unit) && next && isLow(*next)) {
      place += 12;
    } else {
      text.replace(place, 6, "\\ufffd");
      place += 6;
    }
    if (place >= text.size()) return;
  }
}

/// A message as an object; nothing when it is none.
std::optional<Json> parse(std::string text) {
  Json message = Json::parse(text, nullptr, false);
  if (message.is_discarded()) {
    replaceLoneSurrogates(text);
    message = Json::parse(text, nullptr, false);
  }
  if (!message.is_object()) return std::nullopt;
  return message;
}

Result resultOf(Json& message) {
  if (const auto error = message.find("error"); error != message.end()) {
    BrowserFailure failure{.kind = BrowserFailure::Kind::refused};
    if (error->is_object()) {
      const auto code = error->find("code");
      const auto words = error->find("message");
      if (words != error->end() && words->is_string()) words->get_to(failure.message);
      if (code != error->end() && (*code == noSession || *code == invalidParameters)) {
        failure.kind = BrowserFailure::Kind::gone;
      }
    }
    return failure;
  }
  const auto result = message.find("result");
  if (result == message.end() || !result->is_object()) return Json::object();
  return std::move(*result);
}

std::string textOf(const DebuggingRequest& request, std::int64_t id) {
  Json message{{"id", id}, {"method", request.method}, {"params", request.parameters}};
  if (!request.session.empty()) message["sessionId"] = request.session;
  return message.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

DebuggingConnection::DebuggingConnection(std::unique_ptr<DebuggingSocket> socket)
    : socket_(std::move(socket)) {}

Result DebuggingConnection::call(const DebuggingRequest& request, Uptime deadline) {
  return std::move(callAll({request}, deadline).front());
}

std::vector<Result> DebuggingConnection::callAll(const std::vector<DebuggingRequest>& requests,
                                                 Uptime deadline) {
  const std::int64_t first = lastID_ + 1;
  for (const DebuggingRequest& request : requests) {
    if (!socket_->send(textOf(request, ++lastID_), deadline)) break;
  }
  std::vector<std::optional<Result>> answers(requests.size());
  std::size_t missing = requests.size();
  while (missing > 0) {
    std::optional<std::string> text = socket_->receive(deadline);
    if (!text) break;
    // Events, and answers that came too late for whoever waited.
    std::optional<Json> message = parse(std::move(*text));
    if (!message) continue;
    const auto id = message->find("id");
    if (id == message->end() || !id->is_number_integer()) continue;
    const auto number = id->get<std::int64_t>();
    if (number < first || number > lastID_) continue;
    std::optional<Result>& answer = answers[static_cast<std::size_t>(number - first)];
    if (!answer) --missing;
    answer = resultOf(*message);
  }
  std::vector<Result> results;
  results.reserve(answers.size());
  for (std::optional<Result>& answer : answers) {
    if (answer) {
      results.push_back(std::move(*answer));
    } else {
      results.emplace_back(std::chrono::steady_clock::now() < deadline ? gone() : timedOut());
    }
  }
  return results;
}

}  // namespace talmo
