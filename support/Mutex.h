#pragma once

#include <mutex>

#include "support/ThreadSafety.h"

namespace talmo {

/// `std::mutex` as clang's thread-safety analysis knows it. Held for short reads and writes only,
/// never across a call into another component.
class TALMO_CAPABILITY("mutex") Mutex {
 public:
  void lock() TALMO_ACQUIRE() { mutex_.lock(); }
  void unlock() TALMO_RELEASE() { mutex_.unlock(); }

 private:
  std::mutex mutex_;
};

}  // namespace talmo
