#pragma once

#include <functional>
#include <memory>

#include "platform/linux/applications/BusConnection.h"

class QSocketNotifier;

namespace talmo {

/// This program's name on the session bus, which one process of a session has at a time; another
/// one that is started has the first show itself. Main thread.
class InstanceName {
 public:
  enum class Claim {
    /// This process is the one, or there is no session bus to tell.
    ours,
    /// Another one is, and has shown itself.
    anothers,
    /// Another one is, and does not answer or go.
    failed,
  };

  InstanceName();
  ~InstanceName();
  InstanceName(const InstanceName&) = delete;
  InstanceName& operator=(const InstanceName&) = delete;

  /// Takes the name. Where another process has it, that is asked to show itself, or, if this one
  /// was started to follow it, awaited until it has gone. Takes some seconds at most. Once.
  Claim claim(bool isSuccessor);

  /// From now on the toolkit's loop serves the name: `show` is called when this process, which has
  /// the name, is to show itself. Earlier wishes are kept until then.
  void serve(std::function<void()> show);

 private:
  void show();
  void process();

  BusConnection bus_;
  // Whether there was a wish that `serve` has not been there for.
  bool isWanted_ = false;
  std::function<void()> show_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace talmo
