#pragma once

namespace talmo {

/// Where a child's standard output or standard error goes.
enum class ChildOutput { pipe, nullDevice };

}  // namespace talmo
