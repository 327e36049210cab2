#include "platform/macos/audio/MacAudioObjects.h"

#include <algorithm>
#include <dlfcn.h>
#include <type_traits>

#import <CoreAudio/CoreAudio.h>
#import <Foundation/Foundation.h>
#include <sys/types.h>

#include "platform/macos/Text.h"

namespace talmo {
namespace {

static_assert(AudioObjects::systemObject == kAudioObjectSystemObject);
static_assert(std::is_same_v<AudioObjects::Object, AudioObjectID>);
static_assert(std::is_same_v<AudioObjects::Selector, AudioObjectPropertySelector>);
static_assert(std::is_same_v<ProcessIdentifier, pid_t>);

AudioObjectPropertyAddress addressOf(AudioObjects::Selector selector) {
  return {.mSelector = selector,
          .mScope = kAudioObjectPropertyScopeGlobal,
          .mElement = kAudioObjectPropertyElementMain};
}

/// Reads up to `size` bytes of a property, and makes `size` what there was.
OSStatus read(AudioObjects::Object object, AudioObjects::Selector selector, UInt32& size,
              void* value) {
  const AudioObjectPropertyAddress address = addressOf(selector);
  return AudioObjectGetPropertyData(object, &address, 0, nullptr, &size, value);
}

}  // namespace

MacAudioObjects::MacAudioObjects()
    // The main program's handle finds what any loaded image exports.
    : responsibleProcess_(reinterpret_cast<ResponsibleProcess>(
          ::dlsym(::dlopen(nullptr, RTLD_NOW), "responsibility_get_pid_responsible_for_pid"))) {}

bool MacAudioObjects::hasProcessObjects() const {
  if (@available(macOS 14.4, *)) {
    static_assert(processObjectList == kAudioHardwarePropertyProcessObjectList);
    static_assert(processPID == kAudioProcessPropertyPID);
    static_assert(processBundleID == kAudioProcessPropertyBundleID);
    static_assert(processIsRunningOutput == kAudioProcessPropertyIsRunningOutput);
    return true;
  }
  return false;
}

AudioResult<std::uint32_t> MacAudioObjects::dataSize(Object object, Selector selector) {
  const AudioObjectPropertyAddress address = addressOf(selector);
  AudioResult<std::uint32_t> result;
  result.status = AudioObjectGetPropertyDataSize(object, &address, 0, nullptr, &result.value);
  return result;
}

AudioResult<std::vector<AudioObjects::Object>> MacAudioObjects::objects(Object object,
                                                                        Selector selector,
                                                                        std::uint32_t size) {
  // With room for one at least, as nothing is read to nowhere.
  std::vector<Object> list(std::max<std::size_t>(size / sizeof(Object), 1));
  auto length = static_cast<UInt32>(size - size % sizeof(Object));
  const OSStatus status = read(object, selector, length, list.data());
  if (status != 0) return {.status = status};
  list.resize(std::min(list.size(), length / sizeof(Object)));
  return {.value = std::move(list)};
}

bool MacAudioObjects::hasProperty(Object object, Selector selector) {
  const AudioObjectPropertyAddress address = addressOf(selector);
  return AudioObjectHasProperty(object, &address) != 0;
}

AudioResult<std::uint32_t> MacAudioObjects::number(Object object, Selector selector) {
  AudioResult<std::uint32_t> result;
  UInt32 size = sizeof(result.value);
  result.status = read(object, selector, size, &result.value);
  return result;
}

AudioResult<std::string> MacAudioObjects::string(Object object, Selector selector) {
  @autoreleasepool {
    CFStringRef value = nullptr;
    UInt32 size = sizeof(value);
    const OSStatus status = read(object, selector, size, &value);
    if (status != 0) return {.status = status};
    // The reference is ours to release (AudioHardware.h, of each property that is a CFString).
    return {.value = toText(static_cast<NSString*>(CFBridgingRelease(value)))};
  }
}

ProcessIdentifier MacAudioObjects::responsibleProcess(ProcessIdentifier process) {
  return responsibleProcess_(process);
}

}  // namespace talmo
