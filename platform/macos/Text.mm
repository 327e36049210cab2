#include "platform/macos/Text.h"

#include "support/UnicodeText.h"

namespace talmo {
namespace {

NSString* decode(std::string_view text) {
  return [[NSString alloc] initWithBytes:text.data() length:text.size()
                                encoding:NSUTF8StringEncoding];
}

}  // namespace

NSString* toNSString(std::string_view text) {
  if (text.empty()) return @"";
  if (NSString* const string = decode(text)) return string;
  NSString* const repaired = decode(UnicodeText::repaired(text));
  return repaired != nil ? repaired : @"";
}

NSArray<NSString*>* toNSArray(const std::vector<std::string>& texts) {
  NSMutableArray<NSString*>* const array = [NSMutableArray arrayWithCapacity:texts.size()];
  for (const std::string& text : texts) [array addObject:toNSString(text)];
  return array;
}

NSData* toNSData(std::string_view bytes) {
  return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

std::string toText(NSString* text) {
  // Not UTF8String, which ends at a zero character and gives nothing for half a surrogate pair.
  return toBytes([text dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:YES]);
}

std::optional<std::string> toOptionalText(id object) {
  if (![object isKindOfClass:[NSString class]]) return std::nullopt;
  return toText(object);
}

std::string toBytes(NSData* data) {
  // Null for no bytes, which is no range of a string.
  if (data.length == 0) return {};
  return {static_cast<const char*>(data.bytes), data.length};
}

}  // namespace talmo
