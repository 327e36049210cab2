#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include <curl/curl.h>

#include "platform/linux/network/NetworkSettings.h"
#include "platform/NetworkResult.h"

namespace talmo {

/// One GET by libcurl: its handle, and what the answer is collected in. Belongs to one thread;
/// stays where it is made.
class Transfer {
 public:
  Transfer(const std::string& url, const NetworkSettings& settings);
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  CURL* handle() const { return handle_.get(); }

  /// What came of it, once libcurl has ended it with `code`. Takes the body along.
  NetworkResult takeResult(CURLcode code);

 private:
  static std::size_t write(const char* bytes, std::size_t size, std::size_t count, void* transfer);

  template <class Value>
  void set(CURLoption option, Value value);

  std::array<char, CURL_ERROR_SIZE> words_{};
  std::string body_;
  bool isTooLarge_ = false;
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> handle_;
};

}  // namespace talmo
