#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/linux/browsers/DebuggingAddress.h"
#include "platform/linux/browsers/DebuggingSocket.h"

namespace talmo::test {

/// What happens on a page of the imitated sites, told over the browser's debugging socket at once,
/// by the handler that it happens in. The page does nothing more from then on: it goes on playing,
/// or not playing, so that each command finds it as the one before did. One thread; throws when the
/// browser does not answer.
class PageWatch {
 public:
  /// `tab` is the page's.
  PageWatch(const DebuggingAddress& address, const std::string& tab);

  /// Has the page click a button.
  void click(const std::string& selector);

  /// Waits until the page has told `event`, one of those that `ImitationSite` names, passing over
  /// others. When its word came here.
  std::chrono::steady_clock::time_point waitFor(const std::string& event);

 private:
  void send(const std::string& method, const nlohmann::json& parameters);
  /// The same, and its result.
  nlohmann::json ask(const std::string& method, const nlohmann::json& parameters);
  std::string receive();

  std::unique_ptr<DebuggingSocket> socket_;
  /// In which the page takes commands; empty at first, for the browser's own.
  std::string session_;
  std::int64_t lastID_ = 0;
};

}  // namespace talmo::test
