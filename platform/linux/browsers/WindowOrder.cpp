#include "platform/linux/browsers/WindowOrder.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace talmo {
namespace {

/// The length of the longest title that the name begins with.
std::size_t likeness(const TitledWindow& window, std::string_view name) {
  std::size_t longest = 0;
  for (const std::string& title : window.titles) {
    if (title.size() > longest && name.starts_with(title)) longest = title.size();
  }
  return longest;
}

}  // namespace

std::vector<BrowserWindow> inOrderOfNames(std::vector<TitledWindow> windows,
                                          const std::vector<std::string>& names) {
  std::vector<BrowserWindow> ordered;
  ordered.reserve(windows.size());
  for (const std::string& name : names) {
    // Of equals the first.
    const auto best = std::ranges::max_element(
        windows, {}, [&](const TitledWindow& window) { return likeness(window, name); });
    if (best == windows.end() || likeness(*best, name) == 0) continue;
    ordered.push_back(std::move(best->window));
    windows.erase(best);
  }
  for (TitledWindow& rest : windows) ordered.push_back(std::move(rest.window));
  return ordered;
}

}  // namespace talmo
