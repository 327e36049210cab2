#pragma once

#include <compare>
#include <string_view>

namespace talmo {

/// Whether scripts take letters that differ in case only for the same: they do, but for blocks that
/// are `considering case`. How a letter with a mark is encoded never matters.
enum class LetterCase { ignored, considered };

bool scriptTextContains(std::string_view text, std::string_view part, LetterCase letterCase);

std::strong_ordering compareScriptTexts(std::string_view left, std::string_view right,
                                        LetterCase letterCase);

}  // namespace talmo
