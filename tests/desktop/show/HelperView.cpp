#include "tests/desktop/show/HelperView.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace talmo::test {
namespace {

constexpr Duration patience = std::chrono::seconds(20);

}  // namespace

HelperView::HelperView(const PrivateDesktop& desktop, const std::filesystem::path& bundleFolder)
    : bundle_(bundleFolder) {
  for (const auto& [name, value] : desktop.environment()) {
    ::setenv(name.c_str(), value.c_str(), 1);
  }
}

HelperView::~HelperView() {
  dispatch_.shutdown();
  platform_.states().clear();
}

std::optional<AdapterNowPlayingSnapshot> HelperView::look() {
  const auto answer = std::make_shared<std::optional<std::optional<AdapterNowPlayingSnapshot>>>();
  AdapterNowPlaying::get(false, [answer](const auto& snapshot) { *answer = snapshot; });
  if (!dispatch_.serveMainQueueUntil([&] { return answer->has_value(); },
                                     dispatch_.uptime() + patience)) {
    throw std::runtime_error("the helper does not answer");
  }
  return **answer;
}

}  // namespace talmo::test
