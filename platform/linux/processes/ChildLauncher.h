#pragma once

#include <string>
#include <variant>

#include "platform/ChildProcessParameters.h"
#include "platform/linux/FileDescriptor.h"

namespace talmo {

/// Starts a program and returns the process as a descriptor (pidfd), or in words why it could not
/// be started. The descriptors become its standard output and standard error, or the null device
/// where there is none; both are above 2. It gets no other descriptor, no blocked signal and no
/// changed reaction to one.
std::variant<FileDescriptor, std::string> launchChild(const ChildProcessParameters& parameters,
                                                      const FileDescriptor& output,
                                                      const FileDescriptor& error);

}  // namespace talmo
