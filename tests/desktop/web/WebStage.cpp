#include "tests/desktop/web/WebStage.h"

#include <filesystem>
#include <stdexcept>

namespace talmo::test {
namespace {

std::vector<std::string> withBlankTab(std::vector<std::string> arguments) {
  arguments.emplace_back("about:blank");
  return arguments;
}

}  // namespace

WebStage::WebStage()
    : browser_(desktop_, {.arguments = withBlankTab(site_.browserArguments())}),
      tabs_(browser_.port()),
      session_(desktop_.busAddress(), "chromium.instance" + std::to_string(browser_.pid())),
      platform_(desktop_, std::filesystem::path(TALMO_PROGRAM).parent_path()),
      adapter_(AdapterNowPlaying::make()) {
  adapter_->start();
}

WebStage::~WebStage() = default;

void WebStage::clear() {
  tabs_.clear();
  if (!platform_.runUntil([this] { return !adapter_->snapshot(); })) {
    throw std::runtime_error("something goes on playing: " + adapter_->snapshot()->title);
  }
  site_.clear();
}

void WebStage::play(const ImitationPage& page, const std::string& address) {
  tabs_.open(address);
  if (site_.waitFor(page.name, "plays")) return;
  std::string seen = page.name + " does not play; tabs:";
  for (const BrowserTabs::Tab& tab : tabs_.all()) seen += ' ' + tab.url + " [" + tab.title + ']';
  seen += "; reports:";
  for (const std::string& report : site_.reports(page.name)) seen += ' ' + report;
  throw std::runtime_error(seen);
}

}  // namespace talmo::test
