#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace talmo::test {

/// The other end of the helper's stream: keeps the state that the lines add up to.
class StreamReader {
 public:
  /// Takes one line with its line feed. Throws when it is not such a line.
  void read(const std::string& line);

  /// The state, as `get` would write it.
  const nlohmann::json& state() const { return state_; }

 private:
  nlohmann::json state_ = nlohmann::json::object();
};

}  // namespace talmo::test
