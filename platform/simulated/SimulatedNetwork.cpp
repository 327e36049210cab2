#include "platform/simulated/SimulatedNetwork.h"

#include <absl/strings/match.h>
#include <utility>

#include "support/MutexLock.h"
#include "support/UrlComponents.h"

namespace talmo {
namespace {

SimulatedNetwork::Reply failure(std::string words, Duration delay) {
  return {.result = {.error = std::move(words)}, .delay = delay};
}

bool isHttps(const std::string& url) {
  return absl::StartsWithIgnoreCase(url, "https:") && UrlComponents::parse(url).has_value();
}

}  // namespace

void SimulatedNetwork::get(const std::string& url, Completion completion) {
  Reply made = reply(url);
  dispatch_.globalQueue(QualityOfService::utility)
      .asyncAfter(made.delay, [completion = std::move(completion),
                               result = std::move(made.result)] { completion(result); });
}

SimulatedNetwork::Reply SimulatedNetwork::reply(const std::string& url) {
  if (!isHttps(url)) return failure("unsupported URL", Duration::zero());
  std::shared_ptr<const Replies> replies;
  {
    const MutexLock lock(mutex_);
    requests_.push_back(url);
    replies = replies_;
  }
  if (!replies) return failure("the network connection was lost", Duration::zero());
  Reply made = (*replies)(url);
  if (made.delay > timeout) return failure("the request timed out", timeout);
  if (made.result.body.size() > largestBody) {
    return failure("the answer is too large", made.delay);
  }
  return made;
}

void SimulatedNetwork::setReplies(Replies replies) {
  auto made = std::make_shared<const Replies>(std::move(replies));
  const MutexLock lock(mutex_);
  replies_.swap(made);
}

std::vector<std::string> SimulatedNetwork::requests() const {
  const MutexLock lock(mutex_);
  return requests_;
}

}  // namespace talmo
