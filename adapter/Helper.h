#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "adapter/SessionSource.h"

namespace talmo {

/// The helper from its arguments (those after the framework's path) to its exit status: 0 when it
/// did what it was asked to, 1 when it could not, 2 for arguments that make no sense; with one line
/// on `errors` for the latter two. A stream that nobody reads any more has ended well.
///
/// `output` and `errors` are descriptors; SIGPIPE is ignored by the caller. `makeSource` is called
/// when the arguments have made sense.
int runHelper(std::span<const std::string> arguments,
              const std::function<std::unique_ptr<SessionSource>()>& makeSource, int output,
              int errors);

}  // namespace talmo
