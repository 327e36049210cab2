// Core Audio: the objects of the audio system. Any thread.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

// Documented in "AudioObjectID", "AudioObjectPropertySelector" and their neighbours: 32 bits each,
// whatever the processor.
typedef UInt32 AudioObjectID;
typedef UInt32 AudioObjectPropertySelector;
typedef UInt32 AudioObjectPropertyScope;
typedef UInt32 AudioObjectPropertyElement;

struct AudioObjectPropertyAddress {
  AudioObjectPropertySelector mSelector;
  AudioObjectPropertyScope mScope;
  AudioObjectPropertyElement mElement;
};
typedef struct AudioObjectPropertyAddress AudioObjectPropertyAddress;

// A Mac declares these as enumerators of enumerations without a name, as wide as the type that is
// given; the four characters of a literal stand from the high byte down.
enum : AudioObjectPropertyScope {
  kAudioObjectPropertyScopeGlobal = 'glob',
};
enum : AudioObjectPropertyElement {
  kAudioObjectPropertyElementMain API_AVAILABLE(macos(12.0)) = 0,
};
enum : AudioObjectID {
  kAudioObjectSystemObject = 1,
};

// Documented since macOS 14.2, without an availability in the header; to be safe, with one here.
enum : AudioObjectPropertySelector {
  // AudioObjectIDs.
  kAudioHardwarePropertyProcessObjectList API_AVAILABLE(macos(14.2)) = 'prs#',
  // A pid_t.
  kAudioProcessPropertyPID API_AVAILABLE(macos(14.2)) = 'ppid',
  // A CFStringRef, which the caller releases.
  kAudioProcessPropertyBundleID API_AVAILABLE(macos(14.2)) = 'pbid',
  // A UInt32, not a Boolean.
  kAudioProcessPropertyIsRunningOutput API_AVAILABLE(macos(14.2)) = 'piro',
};

CF_ASSUME_NONNULL_BEGIN

CF_EXPORT Boolean AudioObjectHasProperty(AudioObjectID inObjectID,
                                         const AudioObjectPropertyAddress* inAddress)
    API_AVAILABLE(macos(10.4));
CF_EXPORT OSStatus AudioObjectGetPropertyDataSize(AudioObjectID inObjectID,
                                                  const AudioObjectPropertyAddress* inAddress,
                                                  UInt32 inQualifierDataSize,
                                                  const void* _Nullable inQualifierData,
                                                  UInt32* outDataSize) API_AVAILABLE(macos(10.4));
// `ioDataSize` is the room at first and then what was written. An object that was written belongs
// to the caller.
CF_EXPORT OSStatus AudioObjectGetPropertyData(AudioObjectID inObjectID,
                                              const AudioObjectPropertyAddress* inAddress,
                                              UInt32 inQualifierDataSize,
                                              const void* _Nullable inQualifierData,
                                              UInt32* ioDataSize, void* outData)
    API_AVAILABLE(macos(10.4));

CF_ASSUME_NONNULL_END
