#include "tests/desktop/web/WebStage.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/support/WaitUntil.h"

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
      session_(desktop_.busAddress(), "chromium.instance" + std::to_string(browser_.pid())) {}

void WebStage::clear() {
  tabs_.clear();
  // The browser's name is on the bus from when something played first.
  const auto isQuiet = [this] {
    const std::string status = session_.playbackStatus();
    return status.empty() || status == "Stopped";
  };
  if (!waitUntil(isQuiet)) throw std::runtime_error("the browser goes on playing");
  site_.clear();
}

std::string WebStage::open(const ImitationPage& page, const std::string& address) {
  std::string tab = tabs_.open(address);
  if (site_.waitFor(page.name, "visible") && (!page.plays || site_.waitFor(page.name, "plays"))) {
    return tab;
  }
  std::string seen = page.name + " does not open; tabs:";
  for (const BrowserTabs::Tab& one : tabs_.all()) seen += ' ' + one.url + " [" + one.title + ']';
  seen += "; reports:";
  for (const std::string& report : site_.reports(page.name)) seen += ' ' + report;
  throw std::runtime_error(seen);
}

void WebStage::becomeDefaultBrowser() const {
  const std::filesystem::path folder = desktop_.dataFolder() / "applications";
  std::filesystem::create_directories(folder);
  std::ofstream entry(folder / "chromium.desktop");
  entry << "[Desktop Entry]\nType=Application\nName=Chromium\n"
        << "MimeType=x-scheme-handler/http;x-scheme-handler/https;\nExec=";
  for (const std::string& argument : browser_.command()) entry << '"' << argument << "\" ";
  entry << "%U\n";
  std::ofstream(desktop_.configFolder() / "mimeapps.list")
      << "[Default Applications]\nx-scheme-handler/https=chromium.desktop\n";
}

}  // namespace talmo::test
