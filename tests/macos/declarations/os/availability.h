// Which release introduced something, in the words of <os/availability.h>; the compiler compares
// it with the deployment target. Only what a Mac has to say is kept of the lists of platforms.
// What says nothing has been there since macOS 10.0 to 10.4.
#pragma once

#define TALMO_AVAILABILITY_macos(version) __attribute__((availability(macos, introduced = version)))

// API_AVAILABLE(macos(10.15)) and API_AVAILABLE(macos(10.15), ios(13.0), ...): a Mac comes first.
#define API_AVAILABLE(first, ...) TALMO_AVAILABILITY_##first
