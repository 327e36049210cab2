#pragma once

#include <string>

#include "tests/desktop/show/ShowDesktop.h"
#include "tests/support/DesktopPlayer.h"

namespace talmo::test {

/// The panel while two real players play, of which `latest` started last: what it shows, and how
/// it pins the keys. The players are left as they are.
void runPanelRound(ShowDesktop& show, const DesktopPlayer& latest, const DesktopPlayer& other,
                   const std::string& title);

}  // namespace talmo::test
