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
#define QOS_MIN_RELATIVE_PRIORITY (-15)

#define NSEC_PER_SEC 1000000000ull
#define NSEC_PER_MSEC 1000000ull
#define USEC_PER_SEC 1000000ull
#define NSEC_PER_USEC 1000ull

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
// Counts the wall clock. Null means now.
OS_EXPORT dispatch_time_t dispatch_walltime(const struct timespec* _Nullable when, int64_t delta)
    API_AVAILABLE(macos(10.6));

// --- Queues -----------------------------------------------------------------------------------

#define DISPATCH_QUEUE_SERIAL nullptr
OS_EXPORT NSObject<OS_dispatch_queue_attr>* const _dispatch_queue_attr_concurrent_object;
#define DISPATCH_QUEUE_CONCURRENT _dispatch_queue_attr_concurrent_object

typedef enum : unsigned long {
  DISPATCH_AUTORELEASE_FREQUENCY_INHERIT = 0,
  DISPATCH_AUTORELEASE_FREQUENCY_WORK_ITEM = 1,
  DISPATCH_AUTORELEASE_FREQUENCY_NEVER = 2,
} dispatch_autorelease_frequency_t;

// Null is the attribute of a serial queue, which is how DISPATCH_QUEUE_SERIAL comes in.
OS_EXPORT dispatch_queue_attr_t dispatch_queue_attr_make_with_qos_class(
    dispatch_queue_attr_t _Nullable attr, qos_class_t qos_class, int relative_priority)
    API_AVAILABLE(macos(10.10));
OS_EXPORT dispatch_queue_attr_t dispatch_queue_attr_make_with_autorelease_frequency(
    dispatch_queue_attr_t _Nullable attr, dispatch_autorelease_frequency_t frequency)
    API_AVAILABLE(macos(10.12));
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
// The function form: the context is the caller's to free.
OS_EXPORT void dispatch_async_f(dispatch_queue_t queue, void* _Nullable context,
                                dispatch_function_t work) API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_sync(dispatch_queue_t queue, dispatch_block_t NS_NOESCAPE block)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue,
                                void* _Nullable context, dispatch_function_t work)
    API_AVAILABLE(macos(10.6));
// DISPATCH_APPLY_AUTO is a null queue.
#define DISPATCH_APPLY_AUTO nullptr
OS_EXPORT void dispatch_apply(size_t iterations, dispatch_queue_t _Nullable queue,
                              NS_NOESCAPE void (^block)(size_t iteration))
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_queue_set_specific(dispatch_queue_t queue, const void* key,
                                           void* _Nullable context,
                                           dispatch_function_t _Nullable destructor)
    API_AVAILABLE(macos(10.7));
OS_EXPORT void* _Nullable dispatch_get_specific(const void* key) API_AVAILABLE(macos(10.7));
OS_EXPORT void dispatch_assert_queue(dispatch_queue_t queue) API_AVAILABLE(macos(10.12));

// --- Objects ----------------------------------------------------------------------------------

OS_EXPORT void dispatch_resume(dispatch_object_t object) API_AVAILABLE(macos(10.6));

// --- Groups -----------------------------------------------------------------------------------

OS_EXPORT dispatch_group_t dispatch_group_create(void) OS_OBJECT_RETURNS_RETAINED
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_group_async(dispatch_group_t group, dispatch_queue_t queue,
                                    dispatch_block_t block) API_AVAILABLE(macos(10.6));
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
OS_EXPORT const struct dispatch_source_type_s _dispatch_source_type_read;
OS_EXPORT const struct dispatch_source_type_s _dispatch_source_type_signal;
OS_EXPORT const struct dispatch_source_type_s _dispatch_source_type_timer;
#define DISPATCH_SOURCE_TYPE_PROC (&_dispatch_source_type_proc)
#define DISPATCH_SOURCE_TYPE_READ (&_dispatch_source_type_read)
#define DISPATCH_SOURCE_TYPE_SIGNAL (&_dispatch_source_type_signal)
#define DISPATCH_SOURCE_TYPE_TIMER (&_dispatch_source_type_timer)
#define DISPATCH_PROC_EXIT 0x80000000ul
#define DISPATCH_TIMER_STRICT 0x1ul

// Created inactive: dispatch_resume or dispatch_activate starts it.
OS_EXPORT dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle,
                                                   uintptr_t mask, dispatch_queue_t _Nullable queue)
    OS_OBJECT_RETURNS_RETAINED API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_set_event_handler(dispatch_source_t source,
                                                 dispatch_block_t _Nullable handler)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_set_cancel_handler(dispatch_source_t source,
                                                  dispatch_block_t _Nullable handler)
    API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_cancel(dispatch_source_t source) API_AVAILABLE(macos(10.6));
OS_EXPORT uintptr_t dispatch_source_get_data(dispatch_source_t source) API_AVAILABLE(macos(10.6));
OS_EXPORT void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start,
                                         uint64_t interval, uint64_t leeway)
    API_AVAILABLE(macos(10.6));

NS_ASSUME_NONNULL_END
