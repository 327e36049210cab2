#pragma once

#include <string>
#include <vector>

#include "platform/Network.h"
#include "tests/contract/DispatchWorld.h"

namespace talmo::test {

/// A machine on a network with one server.
class NetworkWorld : public DispatchWorld {
 public:
  struct Page {
    int status = 200;
    std::string body = {};
    /// Whether the server never answers.
    bool isSilent = false;
  };

  virtual Network& network() = 0;

  /// What the server answers for `target`, a path with a query. For others it says 404.
  virtual void publish(const std::string& target, const Page& page) = 0;

  /// The URL of `target` on the server.
  virtual std::string url(const std::string& target) = 0;

  /// A URL where there is no server.
  virtual std::string deadUrl() = 0;

  /// The targets that the server was asked for.
  virtual std::vector<std::string> requested() = 0;

  /// Makes the network's time-out a moment, where its time is real. Called before any request.
  virtual void shortenTimeout() = 0;
};

}  // namespace talmo::test
