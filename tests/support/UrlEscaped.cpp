#include "tests/support/UrlEscaped.h"

#include <memory>

#include <curl/curl.h>

namespace talmo::test {

std::string urlEscaped(const std::string& text) {
  const std::unique_ptr<char, decltype(&curl_free)> made(
      curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())), &curl_free);
  return made.get();
}

}  // namespace talmo::test
