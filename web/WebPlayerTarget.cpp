#include "web/WebPlayerTarget.h"

#include <algorithm>
#include <string_view>

#include "support/UrlComponents.h"

namespace talmo {
namespace {

/// Host names compare in ASCII: an internationalised host arrives in its ASCII form or is no host
/// of any player.
std::string lowercased(std::string host) {
  std::ranges::transform(host, host.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return host;
}

bool belongs(std::string_view host, const std::vector<std::string>& hosts) {
  return std::ranges::any_of(hosts, [host](const std::string& entry) {
    if (!host.ends_with(entry)) return false;
    const std::size_t rest = host.size() - entry.size();
    return rest == 0 || host[rest - 1] == '.';
  });
}

}  // namespace

const std::string& WebPlayerTarget::js(WebCommand command) const {
  switch (command) {
    case WebCommand::next:
      return script.next;
    case WebCommand::previous:
      return script.previous;
    case WebCommand::toggle:
      break;
  }
  return script.toggle;
}

bool WebPlayerTarget::matches(const std::string& url) const {
  const std::optional<UrlComponents> components = UrlComponents::parse(url);
  return components && belongs(lowercased(components->host), hosts);
}

bool WebPlayerTarget::isPlayerPage(const std::string& url) const {
  const std::optional<UrlComponents> components = UrlComponents::parse(url);
  if (!components) return false;
  const std::string host = lowercased(components->host);
  if (!belongs(host, hosts)) return false;
  if (playerPathPrefixes.empty() || belongs(host, alwaysPlayerHosts)) return true;
  return std::ranges::any_of(playerPathPrefixes, [&](const std::string& prefix) {
    return components->path.starts_with(prefix);
  });
}

}  // namespace talmo
