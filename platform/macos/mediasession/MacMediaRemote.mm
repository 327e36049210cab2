#include "platform/macos/mediasession/MacMediaRemote.h"

#import <Foundation/Foundation.h>

#include "platform/macos/dispatch/MacQueue.h"
#include "platform/macos/mediasession/MediaRemoteFramework.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

const MediaRemoteFramework& framework() {
  return MediaRemoteFramework::shared();
}

dispatch_queue_t dispatchQueueOf(const std::shared_ptr<Queue>& queue) {
  return static_cast<const MacQueue&>(*queue).dispatchQueue();
}

std::optional<MediaRemoteValue> valueOf(id object) {
  if ([object isKindOfClass:[NSString class]]) return toText(object);
  if ([object isKindOfClass:[NSNumber class]]) return static_cast<NSNumber*>(object).doubleValue;
  if ([object isKindOfClass:[NSData class]]) return MediaRemoteData{toBytes(object)};
  return std::nullopt;
}

std::optional<MediaRemoteInfo> infoOf(NSDictionary* dictionary) {
  if (dictionary == nil) return std::nullopt;
  MediaRemoteInfo info;
  for (id key in dictionary) {
    const std::optional<std::string> name = toOptionalText(key);
    if (!name) continue;
    if (std::optional<MediaRemoteValue> value = valueOf(dictionary[key])) {
      info.emplace(*name, *std::move(value));
    }
  }
  return info;
}

}  // namespace

bool MacMediaRemote::hasFunction(std::string_view name) const {
  return framework().symbol(std::string(name).c_str()) != nullptr;
}

std::optional<std::string> MacMediaRemote::stringConstant(std::string_view name) const {
  @autoreleasepool {
    return toOptionalText(framework().constant(std::string(name).c_str()));
  }
}

void MacMediaRemote::getNowPlayingInfo(
    const std::shared_ptr<Queue>& queue,
    std::function<void(std::optional<MediaRemoteInfo>)> callback) {
  framework().getNowPlayingInfo(dispatchQueueOf(queue), ^(CFDictionaryRef dictionary) {
    @autoreleasepool {
      callback(infoOf((__bridge NSDictionary*)dictionary));
    }
  });
}

void MacMediaRemote::getNowPlayingApplicationPID(const std::shared_ptr<Queue>& queue,
                                                 std::function<void(ProcessIdentifier)> callback) {
  framework().getNowPlayingApplicationPID(dispatchQueueOf(queue), ^(int process) {
    @autoreleasepool {
      callback(process);
    }
  });
}

void MacMediaRemote::getNowPlayingApplicationIsPlaying(const std::shared_ptr<Queue>& queue,
                                                       std::function<void(bool)> callback) {
  framework().getNowPlayingApplicationIsPlaying(dispatchQueueOf(queue), ^(Boolean isPlaying) {
    @autoreleasepool {
      callback(isPlaying != 0);
    }
  });
}

void MacMediaRemote::registerForNowPlayingNotifications(const std::shared_ptr<Queue>& queue) {
  framework().registerForNowPlayingNotifications(dispatchQueueOf(queue));
}

void MacMediaRemote::unregisterForNowPlayingNotifications() {
  framework().unregisterForNowPlayingNotifications();
}

}  // namespace talmo
