#pragma once

#include <fcntl.h>
#include <signal.h>
#include <sys/types.h>

// glibc 2.36 forgot in this header that it may be read by C++.
extern "C" {
#include <sys/pidfd.h>
}
