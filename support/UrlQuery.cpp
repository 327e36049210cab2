#include "support/UrlQuery.h"

#include <memory>
#include <new>

#include <curl/curl.h>

namespace talmo {
namespace {

std::string escaped(const std::string& text) {
  const std::unique_ptr<char, decltype(&curl_free)> result(
      curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())), &curl_free);
  if (!result) throw std::bad_alloc();
  return result.get();
}

}  // namespace

std::string UrlQuery::percentEncoded() const {
  std::string query;
  for (const Item& item : items) {
    if (!query.empty()) query += '&';
    query += escaped(item.name) + '=' + escaped(item.value);
  }
  return query;
}

}  // namespace talmo
