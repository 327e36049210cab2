#pragma once

#include <string_view>

#include "platform/linux/osascript/ScriptStatement.h"

namespace talmo {

/// The statements of a script in the part of AppleScript that is understood here: what it takes to
/// look through a browser's tabs, to run JavaScript in one and to bring one forward. Throws a
/// `ScriptError` for anything else.
ScriptStatement::Block parseScript(std::string_view script);

}  // namespace talmo
