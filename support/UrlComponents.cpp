#include "support/UrlComponents.h"

#include <memory>
#include <string_view>

#include <curl/urlapi.h>

namespace talmo {
namespace {

struct UrlCleanup {
  void operator()(CURLU* url) const { curl_url_cleanup(url); }
};

struct TextCleanup {
  void operator()(char* text) const { curl_free(text); }
};

std::optional<std::string> part(const CURLU* url, CURLUPart which, unsigned flags) {
  char* text = nullptr;
  const CURLUcode code = curl_url_get(const_cast<CURLU*>(url), which, &text, flags);
  const std::unique_ptr<char, TextCleanup> owner(text);
  if (code != CURLUE_OK) return std::nullopt;
  return std::string(text);
}

/// Whether an authority follows the scheme at once. The library is more lenient: it also takes one
/// slash, or three, before a host.
bool hasAuthority(std::string_view url) {
  const std::size_t slashes = url.find("://");
  return slashes != std::string_view::npos && !url.substr(slashes + 3).starts_with('/');
}

}  // namespace

std::optional<UrlComponents> UrlComponents::parse(const std::string& url) {
  if (!hasAuthority(url) || url.find('\0') != std::string::npos) return std::nullopt;
  const std::unique_ptr<CURLU, UrlCleanup> parsed(curl_url());
  // A space in a path is what people paste and browsers report; it is no reason to miss a tab.
  constexpr unsigned lenient = CURLU_NON_SUPPORT_SCHEME | CURLU_PATH_AS_IS | CURLU_ALLOW_SPACE;
  if (!parsed || curl_url_set(parsed.get(), CURLUPART_URL, url.c_str(), lenient) != CURLUE_OK) {
    return std::nullopt;
  }
  std::optional<std::string> host = part(parsed.get(), CURLUPART_HOST, 0);
  if (!host || host->empty()) return std::nullopt;
  std::optional<std::string> path = part(parsed.get(), CURLUPART_PATH, CURLU_URLDECODE);
  // A path that does not decode to text (it escapes control characters) stands as it is written.
  if (!path) path = part(parsed.get(), CURLUPART_PATH, 0);
  if (!path) return std::nullopt;
  return UrlComponents{std::move(*host), std::move(*path)};
}

}  // namespace talmo
