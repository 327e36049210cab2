#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Dispatch.h"
#include "platform/Network.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"
#include "support/Time.h"

namespace talmo {

/// The network of the simulated machine. What is on it a test says; redirects have been followed
/// already. Any thread.
class SimulatedNetwork : public Network {
 public:
  struct Reply {
    NetworkResult result;
    /// When it comes. What comes later than the network's time-out has failed by then.
    Duration delay = std::chrono::milliseconds(20);
  };
  using Replies = std::function<Reply(const std::string& url)>;

  explicit SimulatedNetwork(Dispatch& dispatch) : dispatch_(dispatch) {}

  void get(const std::string& url, Completion completion) override;

  /// What each request from now on is answered with; at first the machine is not connected, and
  /// every request fails. Called on the requesting thread, for HTTPS URLs only.
  void setReplies(Replies replies);

  /// The URLs of the requests that went out, in order.
  std::vector<std::string> requests() const;

 private:
  Reply reply(const std::string& url);

  Dispatch& dispatch_;
  mutable Mutex mutex_;
  std::shared_ptr<const Replies> replies_ TALMO_GUARDED_BY(mutex_);
  std::vector<std::string> requests_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
