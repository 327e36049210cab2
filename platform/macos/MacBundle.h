#pragma once

#include <optional>
#include <string>

#import <Foundation/Foundation.h>

#include "platform/Bundle.h"
#include "support/Mutex.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The application bundle that the program runs from. Any thread.
class MacBundle : public Bundle {
 public:
  /// The bundle's file URL.
  std::string url() const override;
  std::optional<std::string> identifier() const override;
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& extension) const override;
  std::optional<std::string> privateFrameworksPath() const override;
  std::optional<std::string> objectForInfoDictionaryKey(const std::string& key) const override;
  bool fileExists(const std::string& path) const override;

 private:
  // The system's class is not safe to use on several threads at once.
  mutable Mutex mutex_;
  NSBundle* const bundle_ TALMO_GUARDED_BY(mutex_) = NSBundle.mainBundle;
};

}  // namespace talmo
