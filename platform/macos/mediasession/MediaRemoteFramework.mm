#include "platform/macos/mediasession/MediaRemoteFramework.h"

#include <dlfcn.h>

namespace talmo {
namespace {

constexpr const char* path = "/System/Library/PrivateFrameworks/MediaRemote.framework/MediaRemote";

template <class Function>
void find(const MediaRemoteFramework& framework, Function& function, const char* name) {
  function = reinterpret_cast<Function>(framework.symbol(name));
}

MediaRemoteFramework open() {
  MediaRemoteFramework framework{.handle = ::dlopen(path, RTLD_NOW)};
  find(framework, framework.getNowPlayingInfo, "MRMediaRemoteGetNowPlayingInfo");
  find(framework, framework.getNowPlayingApplicationPID,
       "MRMediaRemoteGetNowPlayingApplicationPID");
  find(framework, framework.getNowPlayingApplicationIsPlaying,
       "MRMediaRemoteGetNowPlayingApplicationIsPlaying");
  find(framework, framework.registerForNowPlayingNotifications,
       "MRMediaRemoteRegisterForNowPlayingNotifications");
  find(framework, framework.unregisterForNowPlayingNotifications,
       "MRMediaRemoteUnregisterForNowPlayingNotifications");
  find(framework, framework.getNowPlayingClient, "MRMediaRemoteGetNowPlayingClient");
  find(framework, framework.clientBundleIdentifier, "MRNowPlayingClientGetBundleIdentifier");
  find(framework, framework.clientParentAppBundleIdentifier,
       "MRNowPlayingClientGetParentAppBundleIdentifier");
  find(framework, framework.sendCommand, "MRMediaRemoteSendCommand");
  return framework;
}

}  // namespace

const MediaRemoteFramework& MediaRemoteFramework::shared() {
  static const MediaRemoteFramework framework = open();
  return framework;
}

void* MediaRemoteFramework::symbol(const char* name) const {
  // Null as a handle would search everywhere.
  return handle == nullptr ? nullptr : ::dlsym(handle, name);
}

NSString* MediaRemoteFramework::constant(const char* name) const {
  const auto* const address = static_cast<const CFStringRef*>(symbol(name));
  return address == nullptr ? nil : (__bridge NSString*)*address;
}

}  // namespace talmo
