#include "web/WebTabScanner.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <utility>

#include "nowplaying/AdapterNowPlaying.h"
#include "permissions/AutomationPermission.h"
#include "platform/Platform.h"
#include "support/Logger.h"
#include "support/UnicodeText.h"
#include "web/SupportedBrowsers.h"
#include "web/WebPlayerRegistry.h"
#include "web/WebSessionOwnership.h"

namespace talmo {
namespace {

constexpr Logger log("web-tab");
constexpr Duration scanTimeout = std::chrono::seconds(2);
// Compared after it was counted up, so that a script writes one line more.
constexpr int tabLimit = 50;

/// The browsers to ask: those that run and that the person lets the program automate.
std::vector<SupportedBrowser> automatableBrowsers() {
  const std::optional<AdapterOwner> owner = AdapterNowPlaying::recentOwner();
  std::vector<SupportedBrowser> granted;
  for (SupportedBrowser& browser : SupportedBrowsers::runningFrontmostFirst(
           owner ? std::optional(owner->bundleID) : std::nullopt)) {
    if (AutomationPermission::blockingStatus(browser.bundleID) == AutomationStatus::granted) {
      granted.push_back(std::move(browser));
    } else {
      log.notice("skipping scan of %{public}s: Automation not granted", browser.bundleID);
    }
  }
  return granted;
}

std::vector<WebTabMatch> scanBrowser(const SupportedBrowser& browser) {
  const std::optional<OsascriptResult> result =
      WebTabScanner::runOsascript(WebTabScanner::scanScript(browser), scanTimeout);
  if (!result || result->status != 0) return {};
  return WebTabScanner::parse(result->standardOutput, browser.bundleID,
                              SupportedBrowsers::name(browser.bundleID));
}

/// The match in one line of a scan script.
std::optional<WebTabMatch> parseLine(std::string_view line, const std::string& browserBundleID,
                                     const std::string& browserName) {
  const std::size_t tab = line.find('\t');
  std::string url(UnicodeText::trimmed(line.substr(0, tab)));
  const WebPlayerTarget* const target = WebPlayerRegistry::targetForURL(url);
  if (target == nullptr || !target->isPlayerPage(url)) return std::nullopt;
  std::string_view title;
  if (tab != std::string_view::npos) title = UnicodeText::trimmed(line.substr(tab + 1));
  return WebTabMatch{.targetID = target->id,
                     .browserBundleID = browserBundleID,
                     .browserName = browserName,
                     .url = std::move(url),
                     .title = std::string(title)};
}

}  // namespace

std::vector<WebTabMatch> WebTabScanner::scan() {
  const std::vector<SupportedBrowser> browsers = automatableBrowsers();
  // Each iteration has a slot of its own, so that the order is the browsers', whoever answers
  // first.
  std::vector<std::vector<WebTabMatch>> slots(browsers.size());
  platform().dispatch().concurrentPerform(
      browsers.size(), [&](std::size_t index) { slots[index] = scanBrowser(browsers[index]); });
  std::vector<WebTabMatch> matches;
  for (std::vector<WebTabMatch>& slot : slots) {
    for (WebTabMatch& match : slot) matches.push_back(std::move(match));
  }
  return matches;
}

std::string WebTabScanner::scanScript(const SupportedBrowser& browser) {
  const char* const title = browser.dialect == BrowserDialect::safari ? "name of t" : "title of t";
  return "set sep to character id 9\n"
         "set eol to character id 10\n"
         "tell application id \"" +
         browser.bundleID +
         "\"\n"
         "  set out to \"\"\n"
         "  set n to 0\n"
         "  repeat with w in windows\n"
         "    repeat with t in tabs of w\n"
         "      try\n"
         "        set u to URL of t\n"
         "        if u is not missing value then\n"
         "          if " +
         urlFilterCondition() +
         " then\n"
         "            set out to out & u & sep & (" +
         title +
         ") & eol\n"
         "            set n to n + 1\n"
         "            if n > " +
         std::to_string(tabLimit) +
         " then return out\n"
         "          end if\n"
         "        end if\n"
         "      end try\n"
         "    end repeat\n"
         "  end repeat\n"
         "  return out\n"
         "end tell";
}

std::string WebTabScanner::urlFilterCondition() {
  std::string condition;
  for (const std::string& filter : WebPlayerRegistry::urlFilters()) {
    if (!condition.empty()) condition += " or ";
    condition += "(u contains \"" + filter + "\")";
  }
  return condition;
}

std::optional<OsascriptResult> WebTabScanner::runOsascript(const std::string& script,
                                                           Duration timeout) {
  struct End {
    std::shared_ptr<Semaphore> reached = platform().dispatch().makeSemaphore(0);
    ChildTermination termination;
  };
  const std::shared_ptr<ChildProcess> process =
      platform().childProcesses().make({.executable = "/usr/bin/osascript",
                                        .arguments = {"-e", script},
                                        .standardOutput = ChildOutput::pipe,
                                        .standardError = ChildOutput::pipe});
  const auto end = std::make_shared<End>();
  process->setTerminationHandler([end](const ChildTermination& termination) {
    end->termination = termination;
    end->reached->signal();
  });
  if (const std::optional<std::string> error = process->launch()) {
    log.notice("osascript failed to spawn: %{public}s", *error);
    return std::nullopt;
  }
  if (!end->reached->wait(timeout)) {
    process->terminate();
    log.notice("osascript timed out");
    return std::nullopt;
  }
  std::string output = UnicodeText::repaired(process->standardOutput()->readToEnd());
  std::string error = UnicodeText::repaired(process->standardError()->readToEnd());
  return OsascriptResult{.status = end->termination.status,
                         .standardOutput = std::move(output),
                         .standardError = std::move(error)};
}

std::vector<WebTabMatch> WebTabScanner::parse(std::string_view output,
                                              const std::string& browserBundleID,
                                              const std::string& browserName) {
  std::vector<WebTabMatch> matches;
  while (!output.empty()) {
    const std::string_view line = output.substr(0, output.find('\n'));
    output.remove_prefix(std::min(line.size() + 1, output.size()));
    std::optional<WebTabMatch> match = parseLine(line, browserBundleID, browserName);
    if (match) matches.push_back(*std::move(match));
  }
  return matches;
}

std::map<std::string, WebTabMatch> WebTabScanner::bestPerTarget(
    const std::vector<WebTabMatch>& matches, const std::optional<std::string>& owner,
    const std::optional<std::string>& parentOwner, const std::optional<std::string>& sessionTitle) {
  std::map<std::string, WebTabMatch> best;
  std::map<std::string, int> scores;
  for (const WebTabMatch& match : matches) {
    const bool isOwner = match.browserBundleID == owner || match.browserBundleID == parentOwner;
    const bool hasTitle =
        sessionTitle && WebSessionOwnership::titleMatches(match.title, *sessionTitle);
    const int score = (hasTitle ? 2 : 0) + (isOwner ? 1 : 0);
    const auto [kept, isFirst] = scores.try_emplace(match.targetID, score);
    if (!isFirst && kept->second >= score) continue;
    kept->second = score;
    best.insert_or_assign(match.targetID, match);
  }
  return best;
}

}  // namespace talmo
