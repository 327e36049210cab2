#pragma once

#include "tests/desktop/show/ShowDesktop.h"

namespace talmo::test {

/// Talmo on a desktop that has never seen it, and once more.
void runFirstRunRound(ShowDesktop& show);

}  // namespace talmo::test
