#pragma once

#include <memory>
#include <string>

#include "nowplaying/AdapterNowPlaying.h"
#include "tests/desktop/PlatformOnDesktop.h"
#include "tests/support/BrowserTabs.h"
#include "tests/support/ChromiumProcess.h"
#include "tests/support/ImitationSite.h"
#include "tests/support/MprisClient.h"
#include "tests/support/PrivateDesktop.h"

namespace talmo::test {

/// A private desktop with a real Chromium that shows the imitated sites, and the program's own
/// components in the test's process. Main thread.
class WebStage {
 public:
  WebStage();
  ~WebStage();
  WebStage(const WebStage&) = delete;
  WebStage& operator=(const WebStage&) = delete;

  /// As it was at the start: one blank tab, no reports, nothing that plays.
  void clear();

  /// Opens the page, which plays, and waits until it does.
  void play(const ImitationPage& page, const std::string& address);

  const PrivateDesktop& desktop() const { return desktop_; }
  ImitationSite& site() { return site_; }
  ChromiumProcess& browser() { return browser_; }
  const BrowserTabs& tabs() const { return tabs_; }
  /// The browser's media session.
  MprisClient& session() { return session_; }
  PlatformOnDesktop& platform() { return platform_; }
  /// The stream runs from the start.
  AdapterNowPlaying& adapter() { return *adapter_; }

 private:
  PrivateDesktop desktop_;
  ImitationSite site_;
  ChromiumProcess browser_;
  BrowserTabs tabs_;
  MprisClient session_;
  PlatformOnDesktop platform_;
  std::shared_ptr<AdapterNowPlaying> adapter_;
};

}  // namespace talmo::test
