// Which release introduced something, in the words of <os/availability.h>; the compiler compares
// it with the deployment target. Only what a Mac has to say is kept of the lists of platforms.
#pragma once

#define TALMO_AVAILABILITY_macos(version) __attribute__((availability(macos, introduced = version)))

// API_AVAILABLE(macos(10.15)) and API_AVAILABLE(macos(10.15), ios(13.0), ...): a Mac comes first.
#define API_AVAILABLE(first, ...) TALMO_AVAILABILITY_##first

// API_DEPRECATED("...", macos(10.0, 10.11)): what is deprecated is an error here.
#define TALMO_DEPRECATED_macos(first, last) \
  __attribute__((availability(macos, introduced = first, deprecated = last)))
#define API_DEPRECATED(message, first, ...) TALMO_DEPRECATED_##first

#define API_UNAVAILABLE(...) __attribute__((unavailable))
