#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace talmo {

/// A command of the browser's debugging protocol.
struct DebuggingRequest {
  std::string method;
  nlohmann::json parameters = nlohmann::json::object();
  /// The page that it is for, as `Target.attachToTarget` named the session; empty for the browser.
  std::string session;
};

}  // namespace talmo
