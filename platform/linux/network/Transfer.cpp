#include "platform/linux/network/Transfer.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace talmo {
namespace {

constexpr long mostRedirects = 5;

long milliseconds(Duration duration) {
  return static_cast<long>(std::chrono::ceil<std::chrono::milliseconds>(duration).count());
}

}  // namespace

template <class Value>
void Transfer::set(CURLoption option, Value value) {
  const CURLcode code = curl_easy_setopt(handle(), option, value);
  // An option that libcurl was built without must not be left out in silence: some of them protect.
  if (code != CURLE_OK) throw std::runtime_error(curl_easy_strerror(code));
}

Transfer::Transfer(const std::string& url, const NetworkSettings& settings)
    : handle_(curl_easy_init(), &curl_easy_cleanup) {
  if (!handle_) throw std::bad_alloc();
  set(CURLOPT_URL, url.c_str());
  // Also for redirects.
  set(CURLOPT_PROTOCOLS_STR, "https");
  set(CURLOPT_FOLLOWLOCATION, 1L);
  set(CURLOPT_MAXREDIRS, mostRedirects);
  set(CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
  if (!settings.authorities.empty()) {
    set(CURLOPT_CAINFO, settings.authorities.c_str());
    set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
  }
  set(CURLOPT_USERAGENT, "Talmo/" TALMO_VERSION);
  set(CURLOPT_ACCEPT_ENCODING, "gzip");
  set(CURLOPT_CONNECTTIMEOUT_MS, milliseconds(settings.connectTimeout));
  set(CURLOPT_TIMEOUT_MS, milliseconds(settings.timeout));
  // Time-outs without SIGALRM, which belongs to the whole process.
  set(CURLOPT_NOSIGNAL, 1L);
  // A name look-up that has not come back is left to end by itself instead of being waited for.
  set(CURLOPT_QUICK_EXIT, 1L);
  set(CURLOPT_ERRORBUFFER, words_.data());
  set(CURLOPT_WRITEFUNCTION, &Transfer::write);
  set(CURLOPT_WRITEDATA, this);
}

NetworkResult Transfer::takeResult(CURLcode code) {
  if (isTooLarge_) return {.error = "the answer is too large"};
  if (code == CURLE_UNSUPPORTED_PROTOCOL) return {.error = "the URL is not an HTTPS one"};
  if (code != CURLE_OK) {
    return {.error = words_.front() != '\0' ? words_.data() : curl_easy_strerror(code)};
  }
  long status = 0;
  curl_easy_getinfo(handle(), CURLINFO_RESPONSE_CODE, &status);
  return {.status = static_cast<int>(status), .body = std::move(body_)};
}

std::size_t Transfer::write(const char* bytes, std::size_t size, std::size_t count,
                            void* transfer) {
  auto& self = *static_cast<Transfer*>(transfer);
  const std::size_t length = size * count;
  self.isTooLarge_ = length > Network::largestBody - self.body_.size();
  // Less than was given ends the transfer.
  if (self.isTooLarge_) return 0;
  self.body_.append(bytes, length);
  return length;
}

}  // namespace talmo
