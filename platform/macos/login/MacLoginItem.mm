#include "platform/macos/login/MacLoginItem.h"

#import <Foundation/Foundation.h>
#import <ServiceManagement/ServiceManagement.h>

#include "platform/macos/Text.h"

namespace talmo {
namespace {

std::string wordsOf(NSError* error) {
  return error != nil ? toText(error.description) : "the system does not say why";
}

}  // namespace

bool MacLoginItem::isEnabled() const {
  return SMAppService.mainAppService.status == SMAppServiceStatusEnabled;
}

std::optional<std::string> MacLoginItem::registerMainApp() {
  @autoreleasepool {
    NSError* error = nil;
    if ([SMAppService.mainAppService registerAndReturnError:&error]) return std::nullopt;
    // That it was one before is an error to the system, and none to us.
    if (isEnabled()) return std::nullopt;
    return wordsOf(error);
  }
}

std::optional<std::string> MacLoginItem::unregisterMainApp() {
  @autoreleasepool {
    NSError* error = nil;
    if ([SMAppService.mainAppService unregisterAndReturnError:&error]) return std::nullopt;
    const SMAppServiceStatus status = SMAppService.mainAppService.status;
    if (status == SMAppServiceStatusNotRegistered || status == SMAppServiceStatusNotFound) {
      return std::nullopt;
    }
    return wordsOf(error);
  }
}

}  // namespace talmo
