#include "tests/unit/adapter/StreamReader.h"

#include <stdexcept>

namespace talmo::test {

using nlohmann::json;

void StreamReader::read(const std::string& line) {
  if (line.find('\n') != line.size() - 1) throw std::runtime_error("not one line: " + line);
  const json envelope = json::parse(line);
  const json& payload = envelope.at("payload");
  if (!payload.is_object()) throw std::runtime_error("no payload: " + line);
  if (!envelope.value("diff", false)) {
    state_ = payload;
    return;
  }
  for (const auto& [key, value] : payload.items()) {
    if (value.is_null()) {
      state_.erase(key);
    } else {
      state_[key] = value;
    }
  }
}

}  // namespace talmo::test
