#include "platform/macos/applications/ScriptingReturn.h"

#include <cstddef>
#include <string_view>

namespace talmo {
namespace {

// What may precede a type: const, in, inout, out, bycopy, byref, oneway, atomic.
constexpr std::string_view qualifiers = "rnNoORVA";
// Integers from char to long long, and bool.
constexpr std::string_view numbers = "cCsSiIlLqQB";

}  // namespace

ScriptingReturn scriptingReturn(const char* encoding) {
  const std::string_view text(encoding);
  const std::size_t place = text.find_first_not_of(qualifiers);
  if (place == std::string_view::npos) return ScriptingReturn::other;
  if (text[place] == '@') return ScriptingReturn::object;
  return numbers.find(text[place]) != std::string_view::npos ? ScriptingReturn::number
                                                             : ScriptingReturn::other;
}

}  // namespace talmo
