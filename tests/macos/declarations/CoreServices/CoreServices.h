// Core Services: of it, Apple events (AE). Its descriptors are no objects.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

CF_ASSUME_NONNULL_BEGIN

// Documented in <AE/AEDataModel.h>. The structures are packed to two bytes there, which the size of
// a pointer behind four characters shows; nothing of ours looks inside.
typedef FourCharCode DescType;
typedef UInt32 AEEventClass;
typedef UInt32 AEEventID;

#pragma pack(push, 2)
typedef struct OpaqueAEDataStorageType* AEDataStorageType;
typedef AEDataStorageType _Null_unspecified* _Null_unspecified AEDataStorage;
struct AEDesc {
  DescType descriptorType;
  AEDataStorage dataHandle;
};
#pragma pack(pop)
typedef struct AEDesc AEDesc;
typedef AEDesc AEAddressDesc;

// Plain enumerators, therefore ints.
enum {
  typeWildCard = 0x2A2A2A2A,  // '****'
};

// Documented in <AE/AppleEvents.h>. Waits for the person where it asks them; not for the main
// thread. noErr, or errAEEventNotPermitted (-1743), errAEEventWouldRequireUserConsent (-1744),
// procNotFound (-600).
CF_EXPORT OSStatus AEDeterminePermissionToAutomateTarget(const AEAddressDesc* target,
                                                         AEEventClass theAEEventClass,
                                                         AEEventID theAEEventID,
                                                         Boolean askUserIfNeeded)
    API_AVAILABLE(macos(10.14));

CF_ASSUME_NONNULL_END
