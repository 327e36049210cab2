// The types of the language's runtime.
#pragma once

#include <os/availability.h>

// Documented in "Objective-C Runtime", BOOL: on Apple silicon the language's own, elsewhere a
// signed char; a comparison with YES of anything but a BOOL differs between the two.
#if defined(__arm64__) || defined(__aarch64__)
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif

#define YES __objc_yes
#define NO __objc_no

#ifndef nil
#define nil nullptr
#endif
#ifndef Nil
#define Nil nullptr
#endif
