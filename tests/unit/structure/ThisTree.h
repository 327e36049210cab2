#pragma once

#include "tests/unit/structure/IncludeGraph.h"

namespace talmo::test {

/// The sources and headers that this test was built from.
SourceTree thisTree();

}  // namespace talmo::test
