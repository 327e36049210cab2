#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace talmo {

/// Text by Unicode's rules, in UTF-8. Any thread. Bytes that are no UTF-8 are survived: they are no
/// white space and have no case.
class UnicodeText {
 public:
  UnicodeText() = delete;

  /// The bytes as UTF-8, each invalid sequence replaced by U+FFFD.
  static std::string repaired(std::string_view bytes);

  /// In lower case, whatever the language; a sigma at the end of a word becomes a final one.
  static std::string lowerCase(std::string_view text);

  /// For comparing without regard to case, and for nothing else.
  static std::string caseFolded(std::string_view text);

  /// Letters and their marks composed as far as possible (normalization form C), so that texts
  /// that read the same are the same.
  static std::string composed(std::string_view text);

  /// The pieces between white space (the property White_Space, line ends too), empty ones left out.
  static std::vector<std::string_view> splitAtWhitespace(std::string_view text);

  /// Without white space at both ends.
  static std::string_view trimmed(std::string_view text);

  /// How many characters a person counts: a letter with its marks is one, and so is an emoji.
  static std::size_t characterCount(std::string_view text);
};

}  // namespace talmo
