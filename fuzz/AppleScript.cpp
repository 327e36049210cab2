// Any bytes as a script, against a small browser: nothing crashes, nothing takes long, and what is
// not understood asks for nothing.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "platform/linux/osascript/MemoryBrowser.h"
#include "platform/linux/osascript/ScriptRun.h"

namespace talmo {
namespace {

constexpr ScriptLimits limits{.steps = 20'000, .textSize = 64UL * 1024};

void require(bool holds) {
  if (!holds) std::abort();
}

/// One window with a player's tab, one that has lost its title, one without an address, one that
/// cannot be read; and a window without tabs.
std::shared_ptr<MemoryBrowser> makeBrowser() {
  auto browser = std::make_shared<MemoryBrowser>();
  const std::string window = browser->openWindow();
  browser->setJavaScriptResult(
      browser->openTab(window, "https://www.youtube.com/watch?v=1", "A \"title\""), "result");
  browser->openTab(window, "https://youtu.be/2", std::nullopt);
  browser->openTab(window, std::nullopt, "No address");
  browser->failUrl(browser->openTab(window, "https://soundcloud.com/3", "T"),
                   {.kind = BrowserFailure::Kind::gone});
  browser->openWindow();
  return browser;
}

void check(std::string_view script) {
  const std::shared_ptr<MemoryBrowser> browser = makeBrowser();
  int resolved = 0;
  const ScriptOutcome outcome = runScript(
      script,
      [&](const std::string&) {
        ++resolved;
        return browser;
      },
      limits);
  require(browser->requestCount() <= limits.steps);
  if (const auto* error = std::get_if<ScriptError>(&outcome)) {
    require(error->range.begin <= error->range.end && error->range.begin <= script.size());
    require(error->range.line >= 1 && error->range.column >= 1 && !error->message.empty());
    if (error->kind == ScriptError::Kind::syntax) require(resolved == 0);
  }
}

}  // namespace
}  // namespace talmo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  talmo::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
