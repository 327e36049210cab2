#pragma once

#include <cstddef>

namespace talmo::test {

/// How often the calling thread has allocated through `new` so far. A program that links this has
/// its `operator new` replaced by a counting one.
std::size_t allocations();

}  // namespace talmo::test
