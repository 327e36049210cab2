#pragma once

#include "support/Mutex.h"

namespace talmo {

/// Holds a `Mutex` for its scope; `unlock` and `lock` let go of it in the middle, so that it also
/// serves a `std::condition_variable_any`.
class TALMO_SCOPED_CAPABILITY MutexLock {
 public:
  explicit MutexLock(Mutex& mutex) TALMO_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
  ~MutexLock() TALMO_RELEASE() {
    if (held_) mutex_.unlock();
  }
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;

  void lock() TALMO_ACQUIRE() {
    mutex_.lock();
    held_ = true;
  }
  void unlock() TALMO_RELEASE() {
    held_ = false;
    mutex_.unlock();
  }

 private:
  Mutex& mutex_;
  bool held_ = true;
};

}  // namespace talmo
