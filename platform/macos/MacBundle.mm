#include "platform/macos/MacBundle.h"

#include "platform/macos/Text.h"
#include "support/MutexLock.h"

namespace talmo {

std::string MacBundle::url() const {
  @autoreleasepool {
    const MutexLock lock(mutex_);
    return toText(bundle_.bundleURL.absoluteString);
  }
}

std::optional<std::string> MacBundle::identifier() const {
  @autoreleasepool {
    const MutexLock lock(mutex_);
    return toOptionalText(bundle_.bundleIdentifier);
  }
}

std::optional<std::string> MacBundle::resourcePath(const std::string& name,
                                                   const std::string& extension) const {
  @autoreleasepool {
    const MutexLock lock(mutex_);
    return toOptionalText([bundle_ pathForResource:toNSString(name) ofType:toNSString(extension)]);
  }
}

std::optional<std::string> MacBundle::privateFrameworksPath() const {
  @autoreleasepool {
    const MutexLock lock(mutex_);
    return toOptionalText(bundle_.privateFrameworksPath);
  }
}

std::optional<std::string> MacBundle::objectForInfoDictionaryKey(const std::string& key) const {
  @autoreleasepool {
    const MutexLock lock(mutex_);
    return toOptionalText([bundle_ objectForInfoDictionaryKey:toNSString(key)]);
  }
}

bool MacBundle::fileExists(const std::string& path) const {
  @autoreleasepool {
    return [NSFileManager.defaultManager fileExistsAtPath:toNSString(path)];
  }
}

}  // namespace talmo
