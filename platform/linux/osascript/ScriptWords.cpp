#include "platform/linux/osascript/ScriptWords.h"

#include <algorithm>
#include <array>

namespace talmo {
namespace {

// "AppleScript Keywords" in the AppleScript Language Guide, the words of its constants and of the
// commands that every script knows, sorted.
constexpr auto languageWords = std::to_array<std::string_view>(
    {"about",       "above",       "after",     "against",  "and",     "apart",     "around",
     "as",          "aside",       "at",        "back",     "before",  "beginning", "behind",
     "below",       "beneath",     "beside",    "between",  "but",     "by",        "character",
     "considering", "contain",     "contains",  "continue", "copy",    "count",     "current",
     "display",     "div",         "do",        "does",     "eighth",  "else",      "end",
     "equal",       "equals",      "error",     "every",    "exit",    "false",     "fifth",
     "first",       "for",         "fourth",    "from",     "front",   "get",       "given",
     "global",      "if",          "ignoring",  "in",       "instead", "into",      "is",
     "it",          "its",         "last",      "local",    "me",      "middle",    "missing",
     "mod",         "my",          "ninth",     "not",      "of",      "on",        "onto",
     "or",          "over",        "prop",      "property", "put",     "ref",       "reference",
     "repeat",      "return",      "returning", "run",      "script",  "second",    "set",
     "seventh",     "since",       "sixth",     "some",     "tell",    "tenth",     "that",
     "the",         "then",        "third",     "through",  "thru",    "timeout",   "times",
     "to",          "transaction", "true",      "try",      "until",   "use",       "using",
     "where",       "while",       "whose",     "with",     "without"});

// What browsers add to it, sorted.
constexpr auto browserWords = std::to_array<std::string_view>(
    {"activate", "active", "application", "execute", "id", "index", "javascript", "name", "tab",
     "tabs", "title", "url", "window", "windows"});

static_assert(std::ranges::is_sorted(languageWords) && std::ranges::is_sorted(browserWords));

}  // namespace

bool isReservedWord(std::string_view word) {
  return std::ranges::binary_search(languageWords, word) ||
         std::ranges::binary_search(browserWords, word);
}

}  // namespace talmo
