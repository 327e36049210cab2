#include "platform/macos/applications/MacAppleEvents.h"

#include <CoreServices/CoreServices.h>
#import <Foundation/Foundation.h>
#import <ScriptingBridge/ScriptingBridge.h>

#include "platform/macos/applications/MacScriptingObject.h"
#include "platform/macos/Text.h"

namespace talmo {

std::optional<std::int32_t> MacAppleEvents::determinePermission(const std::string& bundleID,
                                                                bool askUserIfNeeded) {
  // A target is made of every text, also of none.
  if (bundleID.empty()) return std::nullopt;
  NSAppleEventDescriptor* const target =
      [NSAppleEventDescriptor descriptorWithBundleIdentifier:toNSString(bundleID)];
  const AEDesc* const address = target.aeDesc;
  if (address == nullptr) return std::nullopt;
  return AEDeterminePermissionToAutomateTarget(address, typeWildCard, typeWildCard,
                                               askUserIfNeeded);
}

std::unique_ptr<ScriptingObject> MacAppleEvents::application(const std::string& bundleID) {
  if (bundleID.empty()) return nullptr;
  // An object of the caller's own: queues that poll and queues that send have each their errors.
  SBApplication* const application =
      [[SBApplication alloc] initWithBundleIdentifier:toNSString(bundleID)];
  if (application == nil) return nullptr;
  return std::make_unique<MacScriptingObject>(application, application);
}

}  // namespace talmo
