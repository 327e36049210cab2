// Grand Central Dispatch, documented in "Dispatch" and in dispatch_queue_create(3) and its
// neighbours.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <os/object.h>

// Documented in <sys/qos.h>: an unsigned int, by these values.
typedef enum : unsigned int {
  QOS_CLASS_USER_INTERACTIVE = 0x21,
  QOS_CLASS_USER_INITIATED = 0x19,
  QOS_CLASS_DEFAULT = 0x15,
  QOS_CLASS_UTILITY = 0x11,
  QOS_CLASS_BACKGROUND = 0x09,
  QOS_CLASS_UNSPECIFIED = 0x00,
} qos_class_t;

#define NSEC_PER_SEC 1000000000ull
#define NSEC_PER_MSEC 1000000ull

NS_ASSUME_NONNULL_BEGIN

OS_OBJECT_DECL(dispatch_object);
OS_OBJECT_DECL_SUBCLASS(dispatch_group, OS_dispatch_object);
OS_OBJECT_DECL_SUBCLASS(dispatch_queue, OS_dispatch_object);
OS_OBJECT_DECL_SUBCLASS(dispatch_queue_attr, OS_dispatch_object);
OS_OBJECT_DECL_SUBCLASS(dispatch_queue_global, OS_dispatch_queue);
OS_OBJECT_DECL_SUBCLASS(dispatch_queue_main, OS_dispatch_queue);
OS_OBJECT_DECL_SUBCLASS(dispatch_semaphore, OS_dispatch_object);
OS_OBJECT_DECL_SUBCLASS(dispatch_source, OS_dispatch_object);

// Copied by every function that keeps it.
typedef void (^dispatch_block_t)(void);
typedef void (*dispatch_function_t)(void* _Nullable context);

// --- Time -------------------------------------------------------------------------------------

typedef uint64_t dispatch_time_t;
#define DISPATCH_TIME_NOW (0ull)
#define DISPATCH_TIME_FOREVER (~0ull)

// Nanoseconds. Counts mach_absolute_time, which stands while the machine sleeps.
OS_EXPORT dispatch_time_t dispatch_time(dispatch_time_t when, int64_t delta)
    API_AVAILABLE(macos(10.6));

// --- Queues -----------------------------------------------------------------------------------

#define DISPATCH_QUEUE_SERIAL nullptr

// Null is the attribute of a serial queue, which is how DISPATCH_QUEUE_SERIAL comes in.
OS_EXPORT dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(
    dispatch_queue_attr_t _Nullable attr, qos_class_t qos_class, int relative_priority)
    API_AVAILABLE(macos(10.10));
OS_EXPORT dispatch_queue_t dispatch_queue_create(const char* _Nullable label,
                                                 dispatch_queue_attr_t _Nullable attr)
    OS_OBJECT_RETURNS_RETAINED API_AVAILABLE(macos(10.6));
// An inline function on a Mac. Not retained: it stays.
OS_EXPORT dispatch_queue_main_t dispatch_get_main_queue(void) API_AVAILABLE(macos(10.6));
// The identifier is a qos_class_t or one of the older priorities, therefore an intptr_t.
OS_EXPORT dispatch_queue_global_t dispatch_get_global_queue(intptr_t identifier, uintptr_t flags)
    API_AVAILABLE(macos(10.6));
OS_EXPORT const char* dispatch_queue_get_label(dispatch_queue_t _Nullable queue)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_async(dispatch_queue_t queue, dispatch_block_t block)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block)
    API_AVAILABLE(macos(10.6));
// The function form: the context is the caller's to free.
OS_EXPORT void dispatch_async_f(dispatch_queue_t queue, void* _Nullable context,
                                dispatch_function_t work) API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue,
                                void* _Nullable context, dispatch_function_t work)
    API_AVAILABLE(macos(10.6));

// --- Objects ----------------------------------------------------------------------------------

OS_EXPORT void dispatch_resume(dispatch_object_t object) API_AVAILABLE(macos(10.6));

// --- Groups -----------------------------------------------------------------------------------

OS_EXPORT dispatch_group_t dispatch_group_create(void) OS_OBJECT_RETURNS_RETAINED
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_group_enter(dispatch_group_t group) API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_group_leave(dispatch_group_t group) API_AVAILABLE(macos(10.6));
// Zero, or not zero when the time came first.
OS_EXPORT intptr_t dispatch_group_wait(dispatch_group_t group, dispatch_time_t timeout)
    API_AVAILABLE(macos(10.6));

// --- Semaphores -------------------------------------------------------------------------------

// Being released with a smaller value than at creation ends the process.
OS_EXPORT dispatch_semaphore_t dispatch_semaphore_create(intptr_t value) OS_OBJECT_RETURNS_RETAINED
    API_AVAILABLE(macos(10.6));
// Zero, or not zero when the time came first.
OS_EXPORT intptr_t dispatch_semaphore_wait(dispatch_semaphore_t semaphore, dispatch_time_t timeout)
    API_AVAILABLE(macos(10.6));
OS_EXPORT intptr_t dispatch_semaphore_signal(dispatch_semaphore_t semaphore)
    API_AVAILABLE(macos(10.6));

// --- Sources ----------------------------------------------------------------------------------

typedef const struct dispatch_source_type_s* dispatch_source_type_t;
OS_EXPORT const struct dispatch_source_type_s _dispatch_source_type_proc;
OS_EXPORT const struct dispatch_source_type_s _dispatch_source_type_timer;
#define DISPATCH_SOURCE_TYPE_PROC (&_dispatch_source_type_proc)
#define DISPATCH_SOURCE_TYPE_TIMER (&_dispatch_source_type_timer)
#define DISPATCH_PROC_EXIT 0x80000000ul

// Created inactive: dispatch_resume or dispatch_activate starts it.
OS_EXPORT dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle,
                                                   uintptr_t mask, dispatch_queue_t _Nullable queue)
    OS_OBJECT_RETURNS_RETAINED API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_set_event_handler(dispatch_source_t source,
                                                 dispatch_block_t _Nullable handler)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_cancel(dispatch_source_t source) API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start,
                                         uint64_t interval, uint64_t leeway)
    API_AVAILABLE(macos(10.6));

NS_ASSUME_NONNULL_END
