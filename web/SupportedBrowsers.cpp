#include "web/SupportedBrowsers.h"

#include <algorithm>
#include <utility>

#include "platform/Platform.h"

namespace talmo {
namespace {

void moveToFront(std::vector<SupportedBrowser>& list, const std::optional<std::string>& bundleID) {
  if (!bundleID) return;
  const auto found = std::ranges::find(list, *bundleID, &SupportedBrowser::bundleID);
  if (found != list.end()) std::rotate(list.begin(), found, found + 1);
}

const SupportedBrowser* find(const std::string& bundleID) {
  const std::vector<SupportedBrowser>& all = SupportedBrowsers::all();
  const auto found = std::ranges::find(all, bundleID, &SupportedBrowser::bundleID);
  return found == all.end() ? nullptr : &*found;
}

}  // namespace

const std::vector<SupportedBrowser>& SupportedBrowsers::all() {
  using enum BrowserDialect;
  static const std::vector<SupportedBrowser> browsers{
      {"com.apple.Safari", safari},
      {"com.apple.SafariTechnologyPreview", safari},
      {"com.google.Chrome", chromium},
      {"com.google.Chrome.beta", chromium},
      {"com.google.Chrome.dev", chromium},
      {"com.google.Chrome.canary", chromium},
      {"com.brave.Browser", chromium},
      {"com.brave.Browser.beta", chromium},
      {"com.brave.Browser.nightly", chromium},
      {"com.microsoft.edgemac", chromium},
      {"com.microsoft.edgemac.Beta", chromium},
      {"com.vivaldi.Vivaldi", chromium},
      {"com.operasoftware.Opera", chromium},
      {"com.operasoftware.OperaGX", chromium},
      {"com.pushplaylabs.sidekick", chromium},
      {"ai.perplexity.comet", chromium},
      {"company.thebrowser.Browser", chromium},
      {"company.thebrowser.dia", chromium},
      // Built on Safari's engine, it speaks Safari's dialect.
      {"com.kagi.kagimacOS", safari},
  };
  return browsers;
}

std::vector<SupportedBrowser> SupportedBrowsers::runningFrontmostFirst(
    const std::optional<std::string>& playing) {
  const Workspace& workspace = platform().workspace();
  std::vector<SupportedBrowser> running;
  std::ranges::copy_if(all(), std::back_inserter(running), [&](const SupportedBrowser& browser) {
    return !workspace.runningApplications(browser.bundleID).empty();
  });
  return prioritise(std::move(running), workspace.frontmostApplication(), playing);
}

std::vector<SupportedBrowser> SupportedBrowsers::prioritise(
    std::vector<SupportedBrowser> list, const std::optional<std::string>& frontmost,
    const std::optional<std::string>& playing) {
  moveToFront(list, frontmost);
  moveToFront(list, playing);
  return list;
}

std::string SupportedBrowsers::name(const std::string& bundleID) {
  const std::vector<RunningApplication> running =
      platform().workspace().runningApplications(bundleID);
  return running.empty() ? bundleID : running.front().localizedName;
}

bool SupportedBrowsers::isSupported(const std::optional<std::string>& bundleID) {
  return bundleID && find(*bundleID) != nullptr;
}

BrowserDialect SupportedBrowsers::dialect(const std::string& bundleID) {
  const SupportedBrowser* const browser = find(bundleID);
  return browser == nullptr ? BrowserDialect::chromium : browser->dialect;
}

}  // namespace talmo
