#include "platform/macos/applications/MacWorkspace.h"

#include <utility>

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>

#include "platform/macos/applications/LaunchedInstance.h"
#include "platform/macos/applications/UnixDate.h"
#include "platform/macos/images/Pixels.h"
#include "platform/macos/Text.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("workspace");

/// The Spotlight attribute (MDItem.h).
NSString* const lastUsedDateAttribute = @"kMDItemLastUsedDate";

std::optional<Date> dateOf(id object) {
  if (![object isKindOfClass:[NSDate class]]) return std::nullopt;
  return dateFromUnixTime(static_cast<NSDate*>(object).timeIntervalSince1970);
}

/// Nothing for what has no bundle, or no process any more.
std::optional<RunningApplication> valueOf(NSRunningApplication* application) {
  const std::optional<std::string> bundleID = toOptionalText(application.bundleIdentifier);
  if (!bundleID || application.processIdentifier <= 0) return std::nullopt;
  return RunningApplication{
      .bundleID = *bundleID,
      .localizedName = toOptionalText(application.localizedName).value_or(*bundleID),
      .processIdentifier = application.processIdentifier};
}

using Opened = std::function<void(const std::optional<std::string>& error)>;

/// `completion` is called on a queue of the system, once what went wrong has been logged.
void open(const std::string& url, NSWorkspaceOpenConfiguration* configuration, Opened completion) {
  const auto finish = [url, completion = std::move(completion)](NSError* error) {
    std::optional<std::string> reason;
    if (error != nil) {
      reason = toText(error.localizedDescription);
      log.notice("opening %{public}s failed: %{public}s", url, *reason);
    }
    completion(reason);
  };
  NSURL* const location = [NSURL URLWithString:toNSString(url)];
  if (location == nil) {
    NSError* const error = [NSError errorWithDomain:NSCocoaErrorDomain code:NSFileNoSuchFileError
                                           userInfo:nil];
    dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
      finish(error);
    });
    return;
  }
  [NSWorkspace.sharedWorkspace openApplicationAtURL:location configuration:configuration
                                  completionHandler:^(NSRunningApplication*, NSError* error) {
                                    finish(error);
                                  }];
}

}  // namespace

std::optional<std::string> MacWorkspace::urlForApplication(const std::string& bundleID) const {
  NSURL* const url =
      [NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:toNSString(bundleID)];
  return toOptionalText(url.absoluteString);
}

std::vector<RunningApplication> MacWorkspace::runningApplications(
    const std::string& bundleID) const {
  NSArray<NSRunningApplication*>* const running =
      [NSRunningApplication runningApplicationsWithBundleIdentifier:toNSString(bundleID)];
  std::vector<LaunchedInstance> instances;
  for (NSRunningApplication* const application in running) {
    if (std::optional<RunningApplication> value = valueOf(application)) {
      instances.push_back(
          {.application = *std::move(value), .launched = dateOf(application.launchDate)});
    }
  }
  return oldestFirst(std::move(instances));
}

std::optional<RunningApplication> MacWorkspace::runningApplication(
    ProcessIdentifier process) const {
  return valueOf([NSRunningApplication runningApplicationWithProcessIdentifier:process]);
}

std::optional<std::string> MacWorkspace::frontmostApplication() const {
  return toOptionalText(NSWorkspace.sharedWorkspace.frontmostApplication.bundleIdentifier);
}

void MacWorkspace::openApplication(const std::string& url) {
  open(url, [NSWorkspaceOpenConfiguration configuration], [](const auto&) {});
}

void MacWorkspace::openNewInstance(
    const std::string& url,
    std::function<void(const std::optional<std::string>& error)> completion) {
  NSWorkspaceOpenConfiguration* const configuration = [NSWorkspaceOpenConfiguration configuration];
  configuration.createsNewApplicationInstance = YES;
  open(url, configuration, std::move(completion));
}

void MacWorkspace::openURL(const std::string& url) {
  NSURL* const address = [NSURL URLWithString:toNSString(url)];
  if (address == nil || ![NSWorkspace.sharedWorkspace openURL:address]) {
    log.notice("opening %{public}s failed", url);
  }
}

std::optional<Date> MacWorkspace::lastUsedDate(const std::string& url) const {
  NSURL* const location = [NSURL URLWithString:toNSString(url)];
  if (!location.fileURL) return std::nullopt;
  NSMetadataItem* const item = [[NSMetadataItem alloc] initWithURL:location];
  return dateOf([item valueForAttribute:lastUsedDateAttribute]);
}

std::optional<Image> MacWorkspace::icon(const std::string& url, int pixels) const {
  NSURL* const location = [NSURL URLWithString:toNSString(url)];
  // A path that leads nowhere has the icon of a document.
  if (!location.fileURL || ![location checkResourceIsReachableAndReturnError:nil]) {
    return std::nullopt;
  }
  NSString* const path = location.path;
  if (path == nil) return std::nullopt;
  return pixelsOf([NSWorkspace.sharedWorkspace iconForFile:path], pixels);
}

}  // namespace talmo
