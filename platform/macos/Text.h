#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#import <Foundation/Foundation.h>

namespace talmo {

// Between the texts of the program and those of Foundation. Any thread. What comes back as an
// object belongs to the caller's autorelease pool, and is never nil.

/// What is no UTF-8 becomes U+FFFD.
NSString* toNSString(std::string_view text);
NSArray<NSString*>* toNSArray(const std::vector<std::string>& texts);
/// A copy of the bytes.
NSData* toNSData(std::string_view bytes);

/// In UTF-8, with what the system puts there for half a surrogate pair; empty for nil.
std::string toText(NSString* text);
/// Nothing for nil, and for what is no string.
std::optional<std::string> toOptionalText(id object);
/// The bytes; none for nil.
std::string toBytes(NSData* data);

}  // namespace talmo
