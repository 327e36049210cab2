#include "platform/linux/mediasession/UrlText.h"

#include <algorithm>
#include <cctype>
#include <uriparser/Uri.h>
#include <utf8.h>

namespace talmo {
namespace {

// In bytes. Nobody reads further, and what the helper writes has to fit into a line.
constexpr std::size_t longestText = 16384;

// As in "flac", "m4a", "torrent"; "Mr. Someone" and "Opus 3.1415926535" have none.
constexpr std::size_t longestExtension = 7;

bool startsWithIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return text.size() >= lowerCase.size() &&
         std::ranges::equal(text.substr(0, lowerCase.size()), lowerCase, {}, [](char letter) {
           return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
         });
}

std::string_view withoutExtension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return name;
  const std::string_view extension = name.substr(dot + 1);
  const bool isOne = !extension.empty() && extension.size() <= longestExtension &&
                     std::ranges::all_of(extension, [](char letter) {
                       return std::isalnum(static_cast<unsigned char>(letter)) != 0;
                     });
  return isOne ? name.substr(0, dot) : name;
}

}  // namespace

std::string percentDecoded(std::string_view text) {
  std::string decoded(text.substr(0, text.find('\0')));
  const char* const end = uriUnescapeInPlaceExA(decoded.data(), URI_FALSE, URI_BR_DONT_TOUCH);
  decoded.resize(static_cast<std::size_t>(end - decoded.data()));
  return decoded;
}

std::optional<std::string> filePathOf(std::string_view url) {
  constexpr std::string_view scheme = "file:";
  if (!startsWithIgnoringCase(url, scheme)) return std::nullopt;
  url.remove_prefix(scheme.size());
  if (url.starts_with("//")) {
    url.remove_prefix(2);
    const std::string_view host = url.substr(0, url.find('/'));
    constexpr std::string_view thisMachine = "localhost";
    if (!host.empty() &&
        (host.size() != thisMachine.size() || !startsWithIgnoringCase(host, thisMachine))) {
      return std::nullopt;
    }
    url.remove_prefix(host.size());
  }
  if (!url.starts_with('/')) return std::nullopt;
  std::string path = percentDecoded(url);
  if (path.find('\0') != std::string::npos) return std::nullopt;
  return path;
}

std::string titleFromUrl(std::string_view url) {
  const std::size_t schemeEnd = url.find(':');
  if (schemeEnd == std::string_view::npos) return {};
  if (!startsWithIgnoringCase(url, "file:")) url = url.substr(0, url.find_first_of("?#"));
  url.remove_prefix(schemeEnd + 1);
  // The host, as opposed to a file on it.
  if (url.starts_with("//")) {
    url.remove_prefix(2);
    const std::size_t path = url.find('/');
    if (path == std::string_view::npos) return {};
    url.remove_prefix(path);
  }
  const std::string_view name = url.substr(url.rfind('/') + 1);
  const std::string decoded = percentDecoded(name);
  const bool isText =
      decoded.find('\0') == std::string::npos && utf8::is_valid(decoded.begin(), decoded.end());
  return std::string(withoutExtension(isText ? std::string_view(decoded) : name));
}

std::string boundedText(std::string text) {
  if (text.size() <= longestText) return text;
  text.resize(longestText);
  text.erase(utf8::find_invalid(text.begin(), text.end()), text.end());
  return text;
}

}  // namespace talmo
