#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/linux/browsers/DebuggingRequest.h"
#include "platform/linux/browsers/DebuggingSocket.h"
#include "platform/linux/osascript/BrowserModel.h"
#include "support/Time.h"

namespace talmo {

/// Commands to a browser over its debugging socket, and its answers. One thread.
class DebuggingConnection {
 public:
  explicit DebuggingConnection(std::unique_ptr<DebuggingSocket> socket);

  /// The answer to one command: an object. What the browser answers with an error, it refuses;
  /// where the error says that there is no such page, that page is gone.
  BrowserResult<nlohmann::json> call(const DebuggingRequest& request, Uptime deadline);

  /// The answers to several commands, which are sent at once, in their order. One that is slow
  /// holds up the others until `deadline` at most.
  std::vector<BrowserResult<nlohmann::json>> callAll(const std::vector<DebuggingRequest>& requests,
                                                     Uptime deadline);

  bool isOpen() const { return socket_->isOpen(); }

 private:
  std::unique_ptr<DebuggingSocket> socket_;
  std::int64_t lastID_ = 0;
};

}  // namespace talmo
