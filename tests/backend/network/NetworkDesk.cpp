#include "tests/backend/network/NetworkDesk.h"

#include <cstdlib>
#include <fstream>
#include <future>
#include <memory>
#include <utility>

#include <gtest/gtest.h>

#include "support/MutexLock.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

/// What libcurl looks at (curl(1)).
constexpr auto proxyVariables = {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy",
                                 "ALL_PROXY",  "no_proxy",    "NO_PROXY"};

/// Far longer than anything here takes; it only bounds a failure.
constexpr auto patience = 50s;

}  // namespace

NetworkDesk::NetworkDesk(const std::string& serverNames)
    : certificate_(authority_, serverNames),
      server_(certificate_, [this](const auto& request) { return answer(request); }) {
  std::ofstream(authorities()) << authority_.pem();
  for (const char* name : proxyVariables) {
    const char* const value = std::getenv(name);
    environment_[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    ::unsetenv(name);
  }
}

NetworkDesk::~NetworkDesk() {
  for (const auto& [name, value] : environment_) {
    if (value) {
      ::setenv(name.c_str(), value->c_str(), 1);
    } else {
      ::unsetenv(name.c_str());
    }
  }
}

void NetworkDesk::publish(const std::string& target, const HttpsServer::Answer& answer) {
  const MutexLock lock(mutex_);
  answers_[target] = answer;
}

HttpsServer::Answer NetworkDesk::answer(const HttpsServer::Request& request) const {
  const MutexLock lock(mutex_);
  const auto found = answers_.find(request.target);
  return found == answers_.end() ? HttpsServer::Answer{.status = 404} : found->second;
}

std::vector<std::string> NetworkDesk::requested() const {
  std::vector<std::string> targets;
  for (const HttpsServer::Request& request : server_.requests()) targets.push_back(request.target);
  return targets;
}

NetworkSettings NetworkDesk::settings() const {
  return {.authorities = authorities(), .connectTimeout = patience, .timeout = patience};
}

NetworkResult NetworkDesk::fetch(Network& network, const std::string& url) {
  const auto promise = std::make_shared<std::promise<NetworkResult>>();
  network.get(url, [promise](NetworkResult result) { promise->set_value(std::move(result)); });
  std::future<NetworkResult> future = promise->get_future();
  if (future.wait_for(patience) != std::future_status::ready) {
    ADD_FAILURE() << "no end of the request for " << url;
    return {};
  }
  return future.get();
}

NetworkResult NetworkDesk::fetch(const std::string& url) const {
  LinuxNetwork network(settings());
  return fetch(network, url);
}

}  // namespace talmo::test
