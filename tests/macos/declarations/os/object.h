// Objects of the system's libraries below Objective-C. ARC retains and releases them: calling
// dispatch_retain or dispatch_release is an error there, so neither is declared.
#pragma once

#include <objc/NSObject.h>
#include <os/availability.h>

#define OS_OBJECT_DECL(name) \
  @protocol OS_              \
  ##name<NSObject> @end      \
  typedef NSObject<OS_##name>* name##_t

#define OS_OBJECT_RETURNS_RETAINED __attribute__((ns_returns_retained))
#define OS_EXPORT extern "C"
