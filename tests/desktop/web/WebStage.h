#pragma once

#include <string>

#include "tests/support/BrowserTabs.h"
#include "tests/support/ChromiumProcess.h"
#include "tests/support/ImitationSite.h"
#include "tests/support/MprisClient.h"
#include "tests/support/PrivateDesktop.h"

namespace talmo::test {

/// A private desktop with a real Chromium that shows the imitated sites.
class WebStage {
 public:
  WebStage();

  /// As it was at the start: one blank tab, no reports, nothing that plays.
  void clear();

  /// Opens the page in a tab and waits until it is shown, and plays when it is to. The tab's id.
  std::string open(const ImitationPage& page, const std::string& address);

  /// Makes the browser the one that the desktop opens web pages with.
  void becomeDefaultBrowser() const;

  const PrivateDesktop& desktop() const { return desktop_; }
  ImitationSite& site() { return site_; }
  ChromiumProcess& browser() { return browser_; }
  const BrowserTabs& tabs() const { return tabs_; }
  /// The browser's media session.
  MprisClient& session() { return session_; }

 private:
  PrivateDesktop desktop_;
  ImitationSite site_;
  ChromiumProcess browser_;
  BrowserTabs tabs_;
  MprisClient session_;
};

}  // namespace talmo::test
