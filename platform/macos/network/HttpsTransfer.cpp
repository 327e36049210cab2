#include "platform/macos/network/HttpsTransfer.h"

#include "platform/macos/network/HttpsUrl.h"

namespace talmo {
namespace {

constexpr int mostRedirects = 5;

}  // namespace

bool HttpsTransfer::follow(const std::string& url) {
  if (!isHttpsUrl(url)) {
    failure_ = "the URL is not an HTTPS one";
  } else if (++redirects_ > mostRedirects) {
    failure_ = "there are too many redirects";
  }
  return !failure_;
}

bool HttpsTransfer::receive(std::string_view piece) {
  if (failure_) return false;
  if (piece.size() > Network::largestBody - body_.size()) {
    failure_ = "the answer is too large";
    body_ = {};
    return false;
  }
  body_ += piece;
  return true;
}

void HttpsTransfer::expire() {
  if (!failure_) failure_ = "there is no whole answer in time";
}

void HttpsTransfer::complete(std::optional<std::string> error, int status) {
  if (failure_) error = std::move(failure_);
  NetworkResult result;
  if (error) {
    result.error = std::move(error);
  } else {
    result.status = status;
    result.body = std::move(body_);
  }
  completion_(std::move(result));
}

}  // namespace talmo
