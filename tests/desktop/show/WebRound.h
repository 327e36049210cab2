#pragma once

#include "tests/desktop/show/ShowDesktop.h"

namespace talmo::test {

/// A real browser plays a page that imitates a web player's, and Talmo is pinned to that player.
/// The browser has ended when this returns.
void runWebRound(ShowDesktop& show);

}  // namespace talmo::test
