#include "platform/linux/osascript/ScriptText.h"

#include <string>

#include "support/UnicodeText.h"

namespace talmo {
namespace {

std::string comparable(std::string_view text, LetterCase letterCase) {
  const std::string composed = UnicodeText::composed(text);
  return letterCase == LetterCase::ignored ? UnicodeText::caseFolded(composed) : composed;
}

}  // namespace

bool scriptTextContains(std::string_view text, std::string_view part, LetterCase letterCase) {
  return comparable(text, letterCase).find(comparable(part, letterCase)) != std::string::npos;
}

std::strong_ordering compareScriptTexts(std::string_view left, std::string_view right,
                                        LetterCase letterCase) {
  return comparable(left, letterCase) <=> comparable(right, letterCase);
}

}  // namespace talmo
