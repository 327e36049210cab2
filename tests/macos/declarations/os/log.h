// The unified log, documented in "Logging" and os_log(3).
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <os/object.h>

NS_ASSUME_NONNULL_BEGIN

OS_OBJECT_DECL(os_log);

// Documented in <os/log.h>: a byte, with these values and no others.
typedef enum : uint8_t {
  OS_LOG_TYPE_DEFAULT = 0x00,
  OS_LOG_TYPE_INFO = 0x01,
  OS_LOG_TYPE_DEBUG = 0x02,
  OS_LOG_TYPE_ERROR = 0x10,
  OS_LOG_TYPE_FAULT = 0x11,
} os_log_type_t;

// To be called once for each pair of names. Never null.
OS_EXPORT os_log_t os_log_create(const char* subsystem,
                                 const char* category) OS_OBJECT_RETURNS_RETAINED
    API_AVAILABLE(macos(10.12));
OS_EXPORT bool os_log_type_enabled(os_log_t oslog, os_log_type_t type) API_AVAILABLE(macos(10.12));

OS_EXPORT void _os_log_impl(void* dso, os_log_t log, os_log_type_t type, const char* format,
                            uint8_t* buf, uint32_t size) API_AVAILABLE(macos(10.12));
OS_EXPORT int __dso_handle;

// A macro on a Mac too: the format is a literal, checked by the compiler against the arguments,
// which is what the builtins are here for. An argument is private unless it says %{public}.
#define os_log_with_type(log, type, format, ...)                                                 \
  __extension__({                                                                                \
    os_log_t _log_tmp = (log);                                                                   \
    os_log_type_t _type_tmp = (type);                                                            \
    if (os_log_type_enabled(_log_tmp, _type_tmp)) {                                              \
      uint8_t __attribute__((                                                                    \
          uninitialized,                                                                         \
          aligned(16))) _os_fmt_buf[__builtin_os_log_format_buffer_size(format, ##__VA_ARGS__)]; \
      _os_log_impl(                                                                              \
          &__dso_handle, _log_tmp, _type_tmp, format,                                            \
          static_cast<uint8_t*>(__builtin_os_log_format(_os_fmt_buf, format, ##__VA_ARGS__)),    \
          static_cast<uint32_t>(sizeof(_os_fmt_buf)));                                           \
    }                                                                                            \
  })

NS_ASSUME_NONNULL_END
