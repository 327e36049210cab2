#pragma once

#include <string>
#include <vector>

namespace talmo::test {

/// The tabs of a running Chromium, over the HTTP side of its debugging socket, which Talmo itself
/// does not use. Throws when the browser does not answer.
class BrowserTabs {
 public:
  struct Tab {
    std::string id;
    std::string url;
    std::string title;
  };

  /// `port`: the debugging socket's.
  explicit BrowserTabs(int port) : port_(port) {}

  /// The one that was shown last first.
  std::vector<Tab> all() const;

  /// Opens the address in a new tab of the window in front, which then shows it. The tab's id.
  std::string open(const std::string& address) const;

  /// Has the tab's window show it.
  void activate(const std::string& id) const;

  void close(const std::string& id) const;

  /// Closes all tabs; leaves a blank one, so that the browser goes on running.
  void clear() const;

 private:
  std::string ask(const std::string& request, bool isChange) const;

  int port_;
};

}  // namespace talmo::test
