#pragma once

#import <Foundation/Foundation.h>

namespace talmo {

/// The system's private framework for what is playing, opened at run time and kept for good; what
/// it does not have is null. Its functions' forms are not published. Any thread.
///
/// Each function with a block calls it on the queue given, once; with null, zero or false when
/// nothing is playing. What a block is given belongs to the framework: who keeps it retains it.
struct MediaRemoteFramework {
  void* handle;
  void (*getNowPlayingInfo)(dispatch_queue_t, void (^)(CFDictionaryRef));
  void (*getNowPlayingApplicationPID)(dispatch_queue_t, void (^)(int));
  void (*getNowPlayingApplicationIsPlaying)(dispatch_queue_t, void (^)(Boolean));
  void (*registerForNowPlayingNotifications)(dispatch_queue_t);
  void (*unregisterForNowPlayingNotifications)();

  /// Of what "MRMediaRemoteGetNowPlayingClient" gives: who owns the session.
  void (*getNowPlayingClient)(dispatch_queue_t, void (^)(CFTypeRef));
  CFStringRef (*clientBundleIdentifier)(CFTypeRef);
  CFStringRef (*clientParentAppBundleIdentifier)(CFTypeRef);

  /// Whether the command was delivered; without options.
  Boolean (*sendCommand)(int, CFDictionaryRef);

  static const MediaRemoteFramework& shared();

  /// Where a function or constant of that name is; null when there is none.
  void* symbol(const char* name) const;

  /// The text that a constant holds; nil when there is none of that name.
  NSString* constant(const char* name) const;
};

}  // namespace talmo
