#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/browsers/BrowserInstance.h"
#include "platform/linux/browsers/DebuggingConnection.h"
#include "platform/linux/osascript/BrowserModel.h"
#include "platform/ProcessIdentifier.h"
#include "support/Time.h"

namespace talmo {

/// A browser by way of its debugging socket. It connects when it is first asked, and again when the
/// connection has ended.
///
/// The browser says neither in which order its windows and their tabs are. Windows come in the
/// order in which the X server has them, as far as it can tell one from the other; tabs in the
/// order in which the browser lists them. Making a tab the one that its window shows brings the
/// window before the browser's others too.
class RemoteBrowser : public BrowserModel {
 public:
  /// How long each call takes at most.
  static constexpr Duration usualPatience = std::chrono::seconds(1);
  /// Of a browser with more tabs the first ones are seen.
  static constexpr std::size_t mostTabs = 1000;

  /// Of several instances, the first one that lets itself be connected to.
  explicit RemoteBrowser(std::vector<BrowserInstance> instances, Duration patience = usualPatience);

  BrowserResult<std::vector<BrowserWindow>> windows() override;
  BrowserResult<std::optional<std::string>> url(const std::string& tab) override;
  BrowserResult<std::optional<std::string>> title(const std::string& tab) override;
  BrowserResult<std::optional<std::string>> runJavaScript(const std::string& tab,
                                                          const std::string& source) override;
  std::optional<BrowserFailure> activate() override;
  std::optional<BrowserFailure> selectTab(const std::string& tab) override;
  std::optional<BrowserFailure> bringToFront(const std::string& window) override;

 private:
  using Json = nlohmann::json;

  Uptime deadline() const { return std::chrono::steady_clock::now() + patience_; }
  /// Sees to a connection; nothing when there is one.
  std::optional<BrowserFailure> connect(Uptime deadline);
  BrowserResult<Json> call(const DebuggingRequest& request, Uptime deadline);
  BrowserResult<std::vector<BrowserWindow>> windows(Uptime deadline);
  /// What the browser says about the tab now; none for an empty text.
  BrowserResult<std::optional<std::string>> detail(const std::string& tab, const char* name);
  /// The session in which the tab's page takes commands.
  BrowserResult<std::string> session(const std::string& tab, Uptime deadline);
  /// The tab that the window shows, which has some.
  std::string shownTab(const BrowserWindow& window, Uptime deadline);
  std::optional<BrowserFailure> activateTab(const std::string& tab, Uptime deadline);
  std::optional<BrowserFailure> bringToFront(const std::string& window, Uptime deadline);

  const std::vector<BrowserInstance> instances_;
  const Duration patience_;
  ProcessIdentifier process_ = 0;
  std::unique_ptr<DebuggingConnection> connection_;
  /// By tab, for as long as the connection stands, which ends them all.
  std::map<std::string, std::string> sessions_;
  /// What this object has brought to front, which the X server may not know yet.
  std::string frontWindow_;
  std::string selectedTab_;
};

}  // namespace talmo
