#include "support/UnicodeText.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/localpointer.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

namespace talmo {
namespace {

icu::StringPiece piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

/// The library fails only where its own data are missing.
void require(UErrorCode status) {
  if (U_SUCCESS(status)) return;
  std::fprintf(stderr, "talmo: the Unicode library failed: %s\n", u_errorName(status));
  std::abort();
}

const icu::UnicodeSet& whitespace() {
  static const icu::UnicodeSet set = [] {
    icu::UnicodeSet characters;
    UErrorCode status = U_ZERO_ERROR;
    characters.applyIntPropertyValue(UCHAR_WHITE_SPACE, 1, status);
    require(status);
    characters.freeze();
    return characters;
  }();
  return set;
}

/// How many bytes at the beginning are white space, or are none.
std::size_t span(std::string_view text, USetSpanCondition condition) {
  return static_cast<std::size_t>(
      whitespace().spanUTF8(text.data(), static_cast<std::int32_t>(text.size()), condition));
}

}  // namespace

std::string UnicodeText::repaired(std::string_view bytes) {
  std::string text;
  icu::UnicodeString::fromUTF8(piece(bytes)).toUTF8String(text);
  return text;
}

std::string UnicodeText::lowerCase(std::string_view text) {
  std::string lower;
  icu::StringByteSink<std::string> sink(&lower);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
  require(status);
  return lower;
}

std::string UnicodeText::caseFolded(std::string_view text) {
  std::string folded;
  icu::StringByteSink<std::string> sink(&folded);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8Fold(0, piece(text), sink, nullptr, status);
  require(status);
  return folded;
}

std::string UnicodeText::composed(std::string_view text) {
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* const normalizer = icu::Normalizer2::getNFCInstance(status);
  require(status);
  normalizer->normalizeUTF8(0, piece(text), sink, nullptr, status);
  require(status);
  return result;
}

std::vector<std::string_view> UnicodeText::splitAtWhitespace(std::string_view text) {
  std::vector<std::string_view> pieces;
  text = trimmed(text);
  while (!text.empty()) {
    pieces.push_back(text.substr(0, span(text, USET_SPAN_NOT_CONTAINED)));
    text.remove_prefix(pieces.back().size());
    text.remove_prefix(span(text, USET_SPAN_CONTAINED));
  }
  return pieces;
}

std::string_view UnicodeText::trimmed(std::string_view text) {
  text.remove_prefix(span(text, USET_SPAN_CONTAINED));
  return text.substr(
      0, static_cast<std::size_t>(whitespace().spanBackUTF8(
             text.data(), static_cast<std::int32_t>(text.size()), USET_SPAN_CONTAINED)));
}

std::size_t UnicodeText::characterCount(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUTextPointer characters(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  const std::unique_ptr<icu::BreakIterator> ends(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  require(status);
  ends->setText(characters.getAlias(), status);
  require(status);
  std::size_t count = 0;
  while (ends->next() != icu::BreakIterator::DONE) ++count;
  return count;
}

}  // namespace talmo
