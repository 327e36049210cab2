#pragma once

#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "tests/support/Certificate.h"
#include "tests/support/ImitationPage.h"

namespace httplib {
class SSLServer;
}

namespace talmo::test {

/// The web players' sites, imitated on the loopback interface in the test's own process: home
/// pages, search pages and the pages that play (`ImitationPage`), with the buttons, keys and media
/// sessions that the real ones have. What happens on a page it reports here: "track 2", "plays",
/// "pauses", "click .playControl", "action nexttrack", "key KeyK", "visible", "hidden". Pages
/// without a player report under their host and path, and only that they were loaded: "loads".
class ImitationSite {
 public:
  /// Throws when there can be no server.
  ImitationSite();
  ~ImitationSite();
  ImitationSite(const ImitationSite&) = delete;
  ImitationSite& operator=(const ImitationSite&) = delete;

  /// The arguments that make Chromium take this for the sites, and let it reach nothing else.
  std::vector<std::string> browserArguments() const;

  /// What happened on the page of that name, in that order.
  std::vector<std::string> reports(const std::string& page) const;

  /// How often it happened.
  std::size_t count(const std::string& page, const std::string& report) const;

  /// Waits until it happened that often.
  bool waitFor(const std::string& page, const std::string& report, std::size_t count = 1) const;

  /// Forgets what was reported.
  void clear();

 private:
  void answer();

  const Certificate certificate_;
  std::unique_ptr<httplib::SSLServer> server_;
  int port_ = 0;
  std::thread thread_;
  mutable Mutex mutex_;
  std::map<std::string, std::vector<std::string>> reports_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo::test
