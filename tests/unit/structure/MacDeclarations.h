#pragma once

#include <string>
#include <vector>

#include "tests/unit/structure/IncludeGraph.h"

namespace talmo::test {

/// What the declarations of Apple's interfaces have that nothing uses, as "file: name", a method by
/// its whole selector. Used is a class or protocol that is named elsewhere, and a function, method,
/// property or constant whose name is in a macOS source or in a macro, but for what the compiler
/// calls for a literal, a subscript or a loop.
std::vector<std::string> unusedDeclarations(const SourceTree& tree);

}  // namespace talmo::test
