#pragma once

#include <map>
#include <memory>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The private records of the components that are namespaces of static members, one per type. They
/// live as long as the `Platform` that holds them, so that no test sees another's.
class ComponentStates {
 public:
  /// The one `State`, made on first use by its default constructor, which asks nothing of this
  /// object. Any thread.
  template <class State>
  State& of() {
    // An address of the type's own is the key: most records are called `State`, each in its
    // source's unnamed namespace, and not every compiler's type_info tells these apart.
    static char key = 0;
    const MutexLock lock(mutex_);
    std::shared_ptr<void>& slot = states_[&key];
    if (!slot) slot = std::make_shared<State>();
    return *static_cast<State*>(slot.get());
  }

  /// Drops all records. They may hold queues and other things of the services, so a backend calls
  /// this when all work has ended and before its services go.
  void clear() {
    std::map<char*, std::shared_ptr<void>> dropped;
    const MutexLock lock(mutex_);
    dropped.swap(states_);
  }

 private:
  Mutex mutex_;
  std::map<char*, std::shared_ptr<void>> states_ TALMO_GUARDED_BY(mutex_);
};

}  // namespace talmo
