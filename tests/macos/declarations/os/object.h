// Objects of the system's libraries below Objective-C. ARC retains and releases them: calling
// dispatch_retain or dispatch_release is an error there, so neither is declared.
#pragma once

#include <objc/NSObject.h>
#include <os/availability.h>

// clang-format off
#define OS_OBJECT_DECL_SUBCLASS(name, super) \
  @protocol OS_##name <super>                \
  @end                                       \
  typedef NSObject<OS_##name>* name##_t
// clang-format on
#define OS_OBJECT_DECL(name) OS_OBJECT_DECL_SUBCLASS(name, NSObject)

#define OS_OBJECT_RETURNS_RETAINED __attribute__((ns_returns_retained))
#define OS_EXPORT extern "C"
