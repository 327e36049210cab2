#pragma once

#include "tests/desktop/show/ShowDesktop.h"

namespace talmo::test {

/// Talmo is quit from its menu and leaves nothing behind.
void runQuitRound(ShowDesktop& show);

}  // namespace talmo::test
