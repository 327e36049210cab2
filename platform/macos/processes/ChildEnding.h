#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/ChildTermination.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// How a child ended, once it has, and who is to be told. Any thread.
class ChildEnding : public std::enable_shared_from_this<ChildEnding> {
 public:
  using Handler = std::function<void(const ChildTermination&)>;
  /// Has work done on a thread of the system, soon; never before it returns.
  using Post = std::function<void(std::function<void()>)>;

  explicit ChildEnding(Post post) : post_(std::move(post)) {}

  /// `handler` is called once, by `post`, when the child has ended, also when that has been before.
  /// An empty function takes the one before away.
  void setHandler(Handler handler);

  /// The child has ended so. May be told more than once, of which the first time counts.
  void tell(const ChildTermination& termination);

  bool isTold() const;

 private:
  void callHandlerSoon();
  void callHandler();

  const Post post_;
  mutable Mutex mutex_;
  std::optional<ChildTermination> termination_ TALMO_GUARDED_BY(mutex_);
  Handler handler_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
