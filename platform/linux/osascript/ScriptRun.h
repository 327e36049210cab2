#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/linux/osascript/BrowserResolver.h"
#include "platform/linux/osascript/ScriptError.h"

namespace talmo {

/// How much a run may cost.
struct ScriptLimits {
  /// Statements and expressions, and 256 bytes that one of these handles count like one. A run that
  /// needs more is given up, whatever its script catches.
  std::size_t steps = 2'000'000;
  /// Bytes in a single text.
  std::size_t textSize = 16UL * 1024 * 1024;
};

/// What a script returned, if it returned anything, as text; or why it was not understood or
/// stopped.
using ScriptOutcome = std::variant<std::optional<std::string>, ScriptError>;

/// Reads the whole script, and then runs it against the browsers that it tells. A script that is
/// not understood asks for no browser at all.
ScriptOutcome runScript(std::string_view script, const BrowserResolver& browsers,
                        const ScriptLimits& limits = {});

}  // namespace talmo
