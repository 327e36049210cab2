#include "platform/linux/network/LinuxNetwork.h"

#include <map>
#include <new>
#include <optional>
#include <pthread.h>
#include <stdexcept>
#include <utility>

#include "platform/linux/network/Transfer.h"
#include "support/MutexLock.h"
#include "support/UrlComponents.h"

namespace talmo {

/// What is under way. Belongs to the network's thread.
class LinuxNetwork::Transfers {
 public:
  /// A request that has ended, and how.
  struct Ended {
    Completion completion;
    NetworkResult result;
  };

  explicit Transfers(CURLM* multi) : multi_(multi) {}
  ~Transfers() {
    for (const auto& [handle, running] : running_) curl_multi_remove_handle(multi_, handle);
  }
  Transfers(const Transfers&) = delete;
  Transfers& operator=(const Transfers&) = delete;

  /// Begins a request; gives it back when it has failed at once.
  std::optional<Ended> begin(Request request, const NetworkSettings& settings) {
    // libcurl is more lenient, and would read a URL up to a NUL byte only.
    if (!UrlComponents::parse(request.url)) {
      return Ended{std::move(request.completion), {.error = "the URL is not valid"}};
    }
    try {
      auto transfer = std::make_unique<Transfer>(request.url, settings);
      CURL* const handle = transfer->handle();
      if (curl_multi_add_handle(multi_, handle) != CURLM_OK) throw std::bad_alloc();
      running_[handle] = {std::move(transfer), std::move(request.completion)};
      return std::nullopt;
    } catch (const std::exception& error) {
      return Ended{std::move(request.completion), {.error = error.what()}};
    }
  }

  /// Does whatever can be done without waiting.
  void perform() {
    int count = 0;
    curl_multi_perform(multi_, &count);
  }

  /// One that has ended; nothing when none has.
  std::optional<Ended> takeEnded() {
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_, &left);
    if (message == nullptr) return std::nullopt;
    const CURLcode code = message->data.result;
    const auto node = running_.extract(message->easy_handle);
    curl_multi_remove_handle(multi_, node.key());
    Running& running = node.mapped();
    return Ended{std::move(running.completion), running.transfer->takeResult(code)};
  }

 private:
  struct Running {
    std::unique_ptr<Transfer> transfer;
    Completion completion;
  };

  CURLM* const multi_;
  std::map<CURL*, Running> running_;
};

LinuxNetwork::LinuxNetwork(NetworkSettings settings) : settings_(std::move(settings)) {}

LinuxNetwork::~LinuxNetwork() {
  std::thread thread;
  {
    const MutexLock lock(mutex_);
    isStopped_ = true;
    if (multi_) curl_multi_wakeup(multi_.get());
    thread.swap(thread_);
  }
  if (thread.joinable()) thread.join();
}

void LinuxNetwork::get(const std::string& url, Completion completion) {
  const MutexLock lock(mutex_);
  if (isStopped_) return;
  requests_.push_back({url, std::move(completion)});
  if (!thread_.joinable()) startThread();
  curl_multi_wakeup(multi_.get());
}

void LinuxNetwork::startThread() {
  multi_.reset(curl_multi_init());
  if (!multi_) throw std::bad_alloc();
  thread_ = std::thread([this, multi = multi_.get()] { run(multi); });
}

bool LinuxNetwork::isStopped() {
  const MutexLock lock(mutex_);
  return isStopped_;
}

std::vector<LinuxNetwork::Request> LinuxNetwork::takeRequests() {
  const MutexLock lock(mutex_);
  return std::exchange(requests_, {});
}

void LinuxNetwork::run(CURLM* multi) {
  ::pthread_setname_np(::pthread_self(), "network");
  // With nothing under way there is no time to keep: a wake-up ends the wait.
  constexpr int longestWait = 24 * 60 * 60 * 1000;
  Transfers transfers(multi);
  while (!isStopped()) {
    for (Request& request : takeRequests()) {
      std::optional<Transfers::Ended> failed = transfers.begin(std::move(request), settings_);
      if (failed) failed->completion(std::move(failed->result));
    }
    transfers.perform();
    while (!isStopped()) {
      std::optional<Transfers::Ended> ended = transfers.takeEnded();
      if (!ended) break;
      ended->completion(std::move(ended->result));
    }
    curl_multi_poll(multi, nullptr, 0, longestWait, nullptr);
  }
}

}  // namespace talmo
