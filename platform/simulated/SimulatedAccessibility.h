#pragma once

#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/simulated/SimulatedApplications.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The windows of the applications of the simulated machine. Any thread.
class SimulatedAccessibility : public Accessibility {
 public:
  explicit SimulatedAccessibility(const SimulatedApplications& applications)
      : applications_(applications) {}

  std::vector<std::string> windowTitles(ProcessIdentifier process) override {
    std::vector<std::string> titles = applications_.windowTitles(process);
    std::erase(titles, std::string());
    const MutexLock lock(mutex_);
    ++questions_;
    return titles;
  }

  /// How often titles were asked for.
  int questions() const {
    const MutexLock lock(mutex_);
    return questions_;
  }

 private:
  const SimulatedApplications& applications_;
  mutable Mutex mutex_;
  int questions_ TALMO_GUARDED_BY(mutex_) = 0;
};

}  // namespace talmo
