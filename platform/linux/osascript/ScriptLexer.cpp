#include "platform/linux/osascript/ScriptLexer.h"

#include <absl/strings/ascii.h>
#include <array>
#include <charconv>
#include <string>
#include <system_error>
#include <utf8.h>
#include <utility>

#include "platform/linux/osascript/ScriptError.h"

namespace talmo {
namespace {

constexpr std::string_view continuation = "\u00AC";

struct Symbol {
  std::string_view spelling;
  const char* symbol;
};

// The longer ones first.
constexpr std::array<Symbol, 12> symbols{{
    {"<=", "<="},
    {">=", ">="},
    {"\u2264", "<="},
    {"\u2265", ">="},
    {"\u2260", "/="},
    {"<", "<"},
    {">", ">"},
    {"=", "="},
    {"&", "&"},
    {"+", "+"},
    {"(", "("},
    {")", ")"},
}};

bool isBlank(char character) {
  return character == ' ' || character == '\t';
}

bool isLineEnd(char character) {
  return character == '\n' || character == '\r';
}

bool isWordStart(char character) {
  return absl::ascii_isalpha(static_cast<unsigned char>(character)) || character == '_';
}

bool isDigit(char character) {
  return absl::ascii_isdigit(static_cast<unsigned char>(character));
}

class Lexer {
 public:
  explicit Lexer(std::string_view script) : script_(script) {}

  std::vector<ScriptToken> read() {
    skipBetweenTokens();
    while (!isAtEnd()) {
      readToken();
      skipBetweenTokens();
    }
    add(ScriptToken::Kind::endOfScript, "", here_);
    return std::move(tokens_);
  }

 private:
  bool isAtEnd() const { return next_ == script_.size(); }
  char character() const { return isAtEnd() ? '\0' : script_[next_]; }
  bool startsWith(std::string_view text) const { return script_.substr(next_).starts_with(text); }

  /// Every byte of a character but the first is 10xxxxxx.
  bool isWithinCharacter() const {
    return (static_cast<unsigned char>(character()) & 0xC0U) == 0x80U;
  }

  /// Goes on by one byte.
  void advance() {
    const char passed = script_[next_++];
    if (isWithinCharacter()) return;
    ++here_.begin;
    ++here_.column;
    // Of CR LF the second ends the line.
    if (passed == '\n' || (passed == '\r' && character() != '\n')) {
      ++here_.line;
      here_.column = 1;
    }
  }
  void advance(std::size_t bytes) {
    for (std::size_t count = 0; count < bytes; ++count) advance();
  }

  /// What began at `begin` and ends here.
  ScriptRange rangeFrom(const ScriptRange& begin) const {
    ScriptRange range = begin;
    range.end = here_.begin;
    return range;
  }

  void add(ScriptToken::Kind kind, std::string text, const ScriptRange& begin,
           std::int64_t number = 0) {
    tokens_.push_back({kind, std::move(text), number, rangeFrom(begin)});
  }

  [[noreturn]] void refuse(int number, std::string message, const ScriptRange& begin) const {
    throw ScriptError::syntax(number, std::move(message), rangeFrom(begin));
  }

  void skipBetweenTokens() {
    while (!isAtEnd()) {
      if (isBlank(character())) {
        advance();
      } else if (startsWith("--") || character() == '#') {
        while (!isAtEnd() && !isLineEnd(character())) advance();
      } else if (startsWith("(*")) {
        skipComment();
      } else if (startsWith(continuation)) {
        skipContinuation();
      } else {
        return;
      }
    }
  }

  /// These comments nest.
  void skipComment() {
    const ScriptRange begin = here_;
    std::size_t depth = 0;
    do {
      if (isAtEnd()) {
        refuse(ScriptError::unexpectedToken, "Expected \u201C*)\u201D but found end of script.",
               begin);
      }
      const bool opens = startsWith("(*");
      const bool closes = startsWith("*)");
      if (opens) ++depth;
      if (closes) --depth;
      advance(opens || closes ? 2 : 1);
    } while (depth > 0);
  }

  void skipContinuation() {
    const ScriptRange begin = here_;
    advance(continuation.size());
    while (isBlank(character())) advance();
    if (!isLineEnd(character())) refuseUnknown(begin);
    advance(startsWith("\r\n") ? 2 : 1);
  }

  void readToken() {
    if (isLineEnd(character())) {
      readLineEnd();
    } else if (character() == '"') {
      readText();
    } else if (isDigit(character())) {
      readInteger();
    } else if (isWordStart(character())) {
      readWord();
    } else {
      readSymbol();
    }
  }

  void readWord() {
    const ScriptRange begin = here_;
    std::string word;
    while (isWordStart(character()) || isDigit(character())) {
      word += absl::ascii_tolower(static_cast<unsigned char>(character()));
      advance();
    }
    add(ScriptToken::Kind::word, std::move(word), begin);
  }

  void readLineEnd() {
    const ScriptRange begin = here_;
    advance(startsWith("\r\n") ? 2 : 1);
    const bool isFirst = tokens_.empty() || tokens_.back().kind == ScriptToken::Kind::endOfLine;
    if (!isFirst) add(ScriptToken::Kind::endOfLine, "", begin);
  }

  void readText() {
    const ScriptRange begin = here_;
    std::string value;
    advance();
    while (character() != '"' || isAtEnd()) {
      if (isAtEnd()) {
        refuse(ScriptError::unexpectedToken, "Expected \u201C\"\u201D but found end of script.",
               begin);
      }
      if (character() == '\\') {
        value += readEscape();
      } else {
        value += character();
        advance();
      }
    }
    advance();
    add(ScriptToken::Kind::text, std::move(value), begin);
  }

  char readEscape() {
    const ScriptRange begin = here_;
    advance();
    const char escaped = character();
    char meant = '\0';
    switch (escaped) {
      case '"':
      case '\\':
        meant = escaped;
        break;
      case 'n':
        meant = '\n';
        break;
      case 'r':
        meant = '\r';
        break;
      case 't':
        meant = '\t';
        break;
      default:
        refuse(ScriptError::unexpectedToken, "Expected \u201C\"\u201D but found unknown token.",
               begin);
    }
    advance();
    return meant;
  }

  void readInteger() {
    const ScriptRange begin = here_;
    const std::size_t first = next_;
    while (isDigit(character())) advance();
    std::int64_t number = 0;
    const char* const digits = script_.data() + first;
    if (std::from_chars(digits, script_.data() + next_, number).ec != std::errc()) {
      refuse(ScriptError::numericOverflow, "The number is too large.", begin);
    }
    // Neither a real number nor a name that begins with a digit.
    if (character() == '.' || isWordStart(character())) refuseUnknown(here_);
    add(ScriptToken::Kind::integer, "", begin, number);
  }

  void readSymbol() {
    const ScriptRange begin = here_;
    for (const Symbol& symbol : symbols) {
      if (!startsWith(symbol.spelling)) continue;
      advance(symbol.spelling.size());
      add(ScriptToken::Kind::symbol, symbol.symbol, begin);
      return;
    }
    refuseUnknown(begin);
  }

  [[noreturn]] void refuseUnknown(const ScriptRange& begin) const {
    ScriptRange range = begin;
    range.end = begin.begin + 1;
    throw ScriptError::syntax(ScriptError::badToken, "An unknown token can\u2019t go here.", range);
  }

  const std::string_view script_;
  std::size_t next_ = 0;
  // Of its four numbers `end` is not used.
  ScriptRange here_;
  std::vector<ScriptToken> tokens_;
};

}  // namespace

std::vector<ScriptToken> readTokens(std::string_view script) {
  if (script.size() > longestScript) {
    throw ScriptError::syntax(ScriptError::generalError, "The script is too long.", {});
  }
  if (!utf8::is_valid(script.begin(), script.end())) {
    throw ScriptError::syntax(ScriptError::badToken, "The script is not UTF-8.", {});
  }
  return Lexer(script).read();
}

}  // namespace talmo
