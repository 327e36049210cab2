#include "platform/macos/network/HttpsUrl.h"

#include <absl/strings/match.h>

#include "support/UrlComponents.h"

namespace talmo {

bool isHttpsUrl(const std::string& url) {
  return absl::StartsWithIgnoreCase(url, "https://") && UrlComponents::parse(url);
}

}  // namespace talmo
