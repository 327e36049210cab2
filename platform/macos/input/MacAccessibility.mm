#include "platform/macos/input/MacAccessibility.h"

#include <optional>
#include <utility>

#include <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#include "platform/macos/CFOwned.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

constexpr float patience = 2;  // seconds, as for an Apple event to a player

/// Nil when the element has none, or does not answer in time.
id attributeOf(AXUIElementRef element, CFStringRef name) {
  // It holds for this one object only, not for those that are read from it.
  AXUIElementSetMessagingTimeout(element, patience);
  CFTypeRef value = nullptr;
  if (AXUIElementCopyAttributeValue(element, name, &value) != kAXErrorSuccess) return nil;
  return CFBridgingRelease(value);
}

bool isElement(id object) {
  return CFGetTypeID((__bridge CFTypeRef)object) == AXUIElementGetTypeID();
}

}  // namespace

bool MacAccessibility::isProcessTrusted() {
  return AXIsProcessTrusted() != 0;
}

bool MacAccessibility::isProcessTrustedWithPrompt(bool prompt) {
  NSDictionary* const options = @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : @(prompt)};
  return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options) != 0;
}

std::vector<std::string> MacAccessibility::windowTitles(ProcessIdentifier process) {
  std::vector<std::string> titles;
  const CFOwned<AXUIElementRef> application(AXUIElementCreateApplication(process));
  const id windows = attributeOf(application.get(), kAXWindowsAttribute);
  if (![windows isKindOfClass:[NSArray class]]) return titles;
  for (const id window in static_cast<NSArray*>(windows)) {
    if (!isElement(window)) continue;
    std::optional<std::string> title =
        toOptionalText(attributeOf((__bridge AXUIElementRef)window, kAXTitleAttribute));
    if (title && !title->empty()) titles.push_back(*std::move(title));
  }
  return titles;
}

}  // namespace talmo
