#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/NetworkResult.h"
#include "support/Time.h"

namespace talmo {

/// Fetching over HTTPS, and over nothing less: the server's certificate and name are verified.
///
/// Called by the now-playing aggregator for a catalogue's answers and for artworks, on any thread.
class Network {
 public:
  using Completion = std::function<void(NetworkResult)>;

  /// A request that has not ended after this time, redirects included, fails.
  static constexpr Duration timeout = std::chrono::seconds(10);
  /// So does one whose answer has a larger body, in bytes; the rest of it is not read.
  static constexpr std::size_t largestBody = std::size_t{16} * 1024 * 1024;

  virtual ~Network() = default;

  /// Starts a GET of `url`, which is percent-encoded already (see `support/UrlQuery.h`), and
  /// returns at once; redirects are followed as long as they stay on HTTPS. `completion` is called
  /// exactly once, on a thread of the system and never on the main one, also when `url` is no HTTPS
  /// URL. It must not wait for anything, and may start other requests. When the service goes, what
  /// is under way ends, and no completion is called any more.
  virtual void get(const std::string& url, Completion completion) = 0;
};

}  // namespace talmo
