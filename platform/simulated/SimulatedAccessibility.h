#pragma once

#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/simulated/SimulatedApplications.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// What the person of the simulated machine lets the program do, and the windows of its
/// applications. Any thread.
class SimulatedAccessibility : public Accessibility {
 public:
  explicit SimulatedAccessibility(const SimulatedApplications& applications)
      : applications_(applications) {}

  bool isProcessTrusted() override {
    const MutexLock lock(mutex_);
    ++trustQuestions_;
    return isTrusted_;
  }

  bool isProcessTrustedWithPrompt(bool prompt) override {
    const MutexLock lock(mutex_);
    ++trustQuestions_;
    if (prompt && !isTrusted_) ++prompts_;
    return isTrusted_;
  }

  std::vector<std::string> windowTitles(ProcessIdentifier process) override {
    std::vector<std::string> titles = applications_.windowTitles(process);
    std::erase(titles, std::string());
    const MutexLock lock(mutex_);
    ++questions_;
    if (!isTrusted_) titles.clear();
    return titles;
  }

  /// How often titles were asked for.
  int questions() const {
    const MutexLock lock(mutex_);
    return questions_;
  }

  /// Grants trust or takes it back, and tells nobody; granted at first.
  void setTrusted(bool trusted) {
    const MutexLock lock(mutex_);
    isTrusted_ = trusted;
  }

  /// How often trust was asked for, and how often the person was.
  int trustQuestions() const {
    const MutexLock lock(mutex_);
    return trustQuestions_;
  }
  int prompts() const {
    const MutexLock lock(mutex_);
    return prompts_;
  }

 private:
  const SimulatedApplications& applications_;
  mutable Mutex mutex_;
  int questions_ TALMO_GUARDED_BY(mutex_) = 0;
  bool isTrusted_ TALMO_GUARDED_BY(mutex_) = true;
  int trustQuestions_ TALMO_GUARDED_BY(mutex_) = 0;
  int prompts_ TALMO_GUARDED_BY(mutex_) = 0;
};

}  // namespace talmo
