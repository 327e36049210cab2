#include "platform/macos/settings/MacUserDefaults.h"

#include "platform/macos/Text.h"

namespace talmo {

// The typed readers turn numbers into strings and some strings into booleans, so each is asked only
// when the value is of its kind.

std::optional<std::string> MacUserDefaults::string(const std::string& key) const {
  @autoreleasepool {
    NSString* const name = toNSString(key);
    if (![[defaults_ objectForKey:name] isKindOfClass:[NSString class]]) return std::nullopt;
    return toOptionalText([defaults_ stringForKey:name]);
  }
}

void MacUserDefaults::setString(const std::string& key, const std::optional<std::string>& value) {
  @autoreleasepool {
    NSString* const name = toNSString(key);
    if (value) {
      [defaults_ setObject:toNSString(*value) forKey:name];
    } else {
      [defaults_ removeObjectForKey:name];
    }
  }
}

bool MacUserDefaults::boolean(const std::string& key) const {
  @autoreleasepool {
    NSString* const name = toNSString(key);
    return [[defaults_ objectForKey:name] isKindOfClass:[NSNumber class]] &&
           [defaults_ boolForKey:name];
  }
}

void MacUserDefaults::setBoolean(const std::string& key, bool value) {
  @autoreleasepool {
    [defaults_ setBool:value forKey:toNSString(key)];
  }
}

}  // namespace talmo
