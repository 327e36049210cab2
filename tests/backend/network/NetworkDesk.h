#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>

#include "platform/linux/network/LinuxNetwork.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/support/Certificate.h"
#include "tests/support/HttpsServer.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {

/// A server with a certificate of the test's own authority, and an environment without proxies for
/// as long as it lives.
class NetworkDesk {
 public:
  /// The names in the server's certificate; see `Certificate`.
  explicit NetworkDesk(const std::string& serverNames = "DNS:localhost,IP:127.0.0.1");
  ~NetworkDesk();
  NetworkDesk(const NetworkDesk&) = delete;
  NetworkDesk& operator=(const NetworkDesk&) = delete;

  HttpsServer& server() { return server_; }

  /// What the server answers for `target`; for others it says 404.
  void publish(const std::string& target, const HttpsServer::Answer& answer);

  /// The targets that the server was asked for.
  std::vector<std::string> requested() const;

  /// The authority's certificate in a file.
  std::filesystem::path authorities() const { return folder_.path() / "authorities.pem"; }

  /// Settings that trust the authority and are never the first to lose patience.
  NetworkSettings settings() const;

  /// A folder for the test's files.
  const std::filesystem::path& folder() const { return folder_.path(); }

  /// How a request for `url` ends; it must end.
  static NetworkResult fetch(Network& network, const std::string& url);

  /// How it ends on a network of its own with `settings()`.
  NetworkResult fetch(const std::string& url) const;

 private:
  HttpsServer::Answer answer(const HttpsServer::Request& request) const;

  const TemporaryFolder folder_;
  const Certificate authority_;
  const Certificate certificate_;
  mutable Mutex mutex_;
  std::map<std::string, HttpsServer::Answer> answers_ TALMO_GUARDED_BY(mutex_);
  std::map<std::string, std::optional<std::string>> environment_;
  HttpsServer server_;
};

}  // namespace talmo::test
