#include <algorithm>
#include <atomic>
#include <cstdint>
#include <dlfcn.h>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <unistd.h>

#import <AppKit/AppKit.h>
#include <dispatch/dispatch.h>
#import <Foundation/Foundation.h>

#include "adapter/SessionSource.h"
#include "platform/macos/mediasession/ElapsedTime.h"
#include "platform/macos/mediasession/MediaRemoteFramework.h"

namespace talmo {
namespace {

constexpr const char* appKitPath = "/System/Library/Frameworks/AppKit.framework/AppKit";

// How long the framework has for an answer; it gives none when its service is gone.
constexpr std::int64_t answerTimeout = NSEC_PER_SEC;
// How long changes are gathered into one.
constexpr std::int64_t quietTime = 30 * NSEC_PER_MSEC;
constexpr std::int64_t longestGathering = 150 * NSEC_PER_MSEC;
// How often the output is looked at: nothing tells when a reader goes.
constexpr std::int64_t outputCheckInterval = 2 * NSEC_PER_SEC;

/// An answer that comes on another thread, perhaps after nobody waits for it any more.
template <typename Value>
class Answer {
 public:
  void give(Value value) {
    value_ = value;
    dispatch_semaphore_signal(given_);
  }

  std::optional<Value> wait() {
    const dispatch_time_t deadline = dispatch_time(DISPATCH_TIME_NOW, answerTimeout);
    if (dispatch_semaphore_wait(given_, deadline) != 0) return std::nullopt;
    return value_;
  }

 private:
  dispatch_semaphore_t given_ = dispatch_semaphore_create(0);
  Value value_{};
};

std::optional<std::string> text(id value) {
  if (![value isKindOfClass:[NSString class]]) return std::nullopt;
  const char* const characters = [static_cast<NSString*>(value) UTF8String];
  if (characters == nullptr) return std::nullopt;
  return characters;
}

std::optional<double> number(id value) {
  if (![value isKindOfClass:[NSNumber class]]) return std::nullopt;
  return [static_cast<NSNumber*>(value) doubleValue];
}

/// The application of a process, for a framework that does not name the owner itself. AppKit takes
/// longer to load than a helper runs, so it is not linked.
std::optional<std::string> bundleIdentifierOf(pid_t process) {
  [[maybe_unused]] static void* const appKit = ::dlopen(appKitPath, RTLD_NOW);
  const Class applications = NSClassFromString(@"NSRunningApplication");
  NSRunningApplication* const application =
      [applications runningApplicationWithProcessIdentifier:process];
  return text(application.bundleIdentifier);
}

/// The session that the system keeps.
class MediaRemoteSource : public SessionSource {
 public:
  ~MediaRemoteSource() override {
    for (id observer in observers_) [NSNotificationCenter.defaultCenter removeObserver:observer];
    if (parentSource_ != nil) dispatch_source_cancel(parentSource_);
    if (outputTimer_ != nil) dispatch_source_cancel(outputTimer_);
  }

  std::optional<MediaSession> current(bool wantsArtwork) override {
    @autoreleasepool {
      return read(wantsArtwork);
    }
  }

  bool waitForChange() override {
    @autoreleasepool {
      if (observers_ == nil) {
        observe();
        // What came before this was not seen.
        return !mustEnd();
      }
      while (!mustEnd()) {
        dispatch_semaphore_wait(woken_, DISPATCH_TIME_FOREVER);
        if (!*hasChanged_) continue;
        gatherChanges();
        return !mustEnd();
      }
      return false;
    }
  }

  bool send(int command) override {
    @autoreleasepool {
      if (remote_.sendCommand == nullptr) return false;
      if (remote_.sendCommand(command, nullptr) == 0) return false;
      // It may still be on its way out, and this process ends: what answers comes after it.
      process();
      return true;
    }
  }

 private:
  struct Owner {
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> parentBundleIdentifier;
  };

  Owner owner() {
    Owner owner;
    if (remote_.getNowPlayingClient != nullptr && remote_.clientBundleIdentifier != nullptr) {
      const auto answer = std::make_shared<Answer<id>>();
      remote_.getNowPlayingClient(queue_, ^(CFTypeRef client) {
        answer->give((__bridge id)client);
      });
      if (const id client = answer->wait().value_or(nil); client != nil) {
        const auto reference = (__bridge CFTypeRef)client;
        owner.bundleIdentifier = text((__bridge id)remote_.clientBundleIdentifier(reference));
        if (remote_.clientParentAppBundleIdentifier != nullptr) {
          owner.parentBundleIdentifier =
              text((__bridge id)remote_.clientParentAppBundleIdentifier(reference));
        }
      }
    }
    if (!owner.bundleIdentifier) {
      if (const pid_t process = this->process(); process > 0) {
        owner.bundleIdentifier = bundleIdentifierOf(process);
      }
    }
    return owner;
  }

  /// The owner's process; 0 or less when there is none.
  pid_t process() {
    if (remote_.getNowPlayingApplicationPID == nullptr) return 0;
    const auto answer = std::make_shared<Answer<pid_t>>();
    remote_.getNowPlayingApplicationPID(queue_, ^(int process) {
      answer->give(process);
    });
    return answer->wait().value_or(0);
  }

  bool isPlaying(const std::optional<double>& rate) {
    if (rate) return *rate > 0;
    if (remote_.getNowPlayingApplicationIsPlaying == nullptr) return false;
    const auto answer = std::make_shared<Answer<bool>>();
    remote_.getNowPlayingApplicationIsPlaying(queue_, ^(Boolean playing) {
      answer->give(playing != 0);
    });
    return answer->wait().value_or(false);
  }

  std::optional<MediaSession> read(bool wantsArtwork) {
    if (remote_.getNowPlayingInfo == nullptr) return std::nullopt;
    const Owner owner = this->owner();
    if (!owner.bundleIdentifier || owner.bundleIdentifier->empty()) return std::nullopt;
    const auto answer = std::make_shared<Answer<NSDictionary*>>();
    remote_.getNowPlayingInfo(queue_, ^(CFDictionaryRef information) {
      answer->give((__bridge NSDictionary*)information);
    });
    NSDictionary* const info = answer->wait().value_or(nil);
    if (info == nil) return std::nullopt;

    const std::optional<double> rate = number(info[@"kMRMediaRemoteNowPlayingInfoPlaybackRate"]);
    MediaSession session{
        .bundleIdentifier = *owner.bundleIdentifier,
        .parentApplicationBundleIdentifier = owner.parentBundleIdentifier,
        .trackIdentifier = trackIdentifier(info),
        .title = text(info[@"kMRMediaRemoteNowPlayingInfoTitle"]).value_or(""),
        .artist = text(info[@"kMRMediaRemoteNowPlayingInfoArtist"]),
        .album = text(info[@"kMRMediaRemoteNowPlayingInfoAlbum"]),
        .isPlaying = isPlaying(rate),
        .elapsedTime = number(info[@"kMRMediaRemoteNowPlayingInfoElapsedTime"]),
        .duration = number(info[@"kMRMediaRemoteNowPlayingInfoDuration"]),
    };
    // The owner said where it was when it last had something to say.
    const id timestamp = info[@"kMRMediaRemoteNowPlayingInfoTimestamp"];
    if (session.elapsedTime && session.isPlaying && [timestamp isKindOfClass:[NSDate class]]) {
      const double age = -static_cast<NSDate*>(timestamp).timeIntervalSinceNow;
      session.elapsedTime =
          elapsedTimeNow(*session.elapsedTime, age, rate.value_or(1), session.duration);
    }
    if (wantsArtwork) {
      session.artwork = artwork(info[@"kMRMediaRemoteNowPlayingInfoArtworkData"]);
    }
    return session;
  }

  static std::string trackIdentifier(NSDictionary* info) {
    if (const auto item = text(info[@"kMRMediaRemoteNowPlayingInfoContentItemIdentifier"])) {
      return *item;
    }
    const id unique = info[@"kMRMediaRemoteNowPlayingInfoUniqueIdentifier"];
    return [unique isKindOfClass:[NSNumber class]] ? [[unique stringValue] UTF8String] : "";
  }

  /// The same object as the last time while the bytes are the same.
  std::shared_ptr<const std::string> artwork(id value) {
    if (![value isKindOfClass:[NSData class]] || [value length] == 0) return nullptr;
    NSData* const data = value;
    if (artworkData_ == nil || ![artworkData_ isEqualToData:data]) {
      artworkData_ = [data copy];
      artwork_ = std::make_shared<std::string>(static_cast<const char*>(data.bytes),
                                               static_cast<std::size_t>(data.length));
    }
    return artwork_;
  }

  /// From now on `woken_` is signalled by changes, by the end of the parent and from time to time.
  void observe() {
    const dispatch_semaphore_t woken = woken_;
    const std::shared_ptr<std::atomic<bool>> hasChanged = hasChanged_;
    observers_ = [NSMutableArray array];
    for (const char* name : {"kMRMediaRemoteNowPlayingInfoDidChangeNotification",
                             "kMRMediaRemoteNowPlayingApplicationDidChangeNotification",
                             "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification"}) {
      NSString* const notification = remote_.constant(name);
      if (notification == nil) continue;
      [observers_
          addObject:[NSNotificationCenter.defaultCenter addObserverForName:notification object:nil
                                                                     queue:nil
                                                                usingBlock:^(NSNotification*) {
                                                                  *hasChanged = true;
                                                                  dispatch_semaphore_signal(woken);
                                                                }]];
    }
    if (remote_.registerForNowPlayingNotifications != nullptr) {
      remote_.registerForNowPlayingNotifications(queue_);
    }

    parentSource_ = dispatch_source_create(
        DISPATCH_SOURCE_TYPE_PROC, static_cast<uintptr_t>(parent_), DISPATCH_PROC_EXIT, queue_);
    outputTimer_ = dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, queue_);
    dispatch_source_set_timer(outputTimer_, dispatch_time(DISPATCH_TIME_NOW, outputCheckInterval),
                              outputCheckInterval, outputCheckInterval / 4);
    for (dispatch_source_t source : {parentSource_, outputTimer_}) {
      dispatch_source_set_event_handler(source, ^{
        dispatch_semaphore_signal(woken);
      });
      dispatch_resume(source);
    }
  }

  /// Waits until there is a pause in the changes, or long enough.
  void gatherChanges() {
    const dispatch_time_t end = dispatch_time(DISPATCH_TIME_NOW, longestGathering);
    while (dispatch_time(DISPATCH_TIME_NOW, 0) < end) {
      const dispatch_time_t pause = dispatch_time(DISPATCH_TIME_NOW, quietTime);
      if (dispatch_semaphore_wait(woken_, std::min(pause, end)) != 0) break;
    }
    *hasChanged_ = false;
  }

  bool mustEnd() const {
    if (::getppid() != parent_) return true;
    // Without an event to look for, this system's poll does not look at all.
    pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
    return ::poll(&output, 1, 0) == 1 && (output.revents & (POLLERR | POLLHUP | POLLNVAL)) != 0;
  }

  const MediaRemoteFramework& remote_ = MediaRemoteFramework::shared();
  const pid_t parent_ = ::getppid();
  const dispatch_queue_t queue_ =
      dispatch_queue_create("nl.brelm.talmo.now-playing-helper", DISPATCH_QUEUE_SERIAL);
  const dispatch_semaphore_t woken_ = dispatch_semaphore_create(0);
  /// Set by the observers, on whatever thread they are called.
  const std::shared_ptr<std::atomic<bool>> hasChanged_ = std::make_shared<std::atomic<bool>>(false);
  /// Nil before there are any.
  NSMutableArray* observers_ = nil;
  dispatch_source_t parentSource_ = nil;
  dispatch_source_t outputTimer_ = nil;
  NSData* artworkData_ = nil;
  std::shared_ptr<const std::string> artwork_;
};

}  // namespace

std::unique_ptr<SessionSource> makeSessionSource() {
  return std::make_unique<MediaRemoteSource>();
}

}  // namespace talmo
