#include "platform/linux/osascript/ScriptParser.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/osascript/ScriptError.h"
#include "platform/linux/osascript/ScriptLexer.h"
#include "platform/linux/osascript/ScriptWords.h"

namespace talmo {
namespace {

using Block = ScriptStatement::Block;
using Token = ScriptToken;

// How many blocks, parentheses and prefixes may stand in each other. What the program writes stays
// below ten; every level takes some stack.
constexpr std::size_t deepestNesting = 100;

std::string quoted(const std::string& text) {
  return "\u201C" + text + "\u201D";
}

std::string described(const Token& token) {
  switch (token.kind) {
    case Token::Kind::word:
    case Token::Kind::symbol:
      return quoted(token.text);
    case Token::Kind::text:
      return "text";
    case Token::Kind::integer:
      return "number";
    case Token::Kind::endOfLine:
      return "end of line";
    case Token::Kind::endOfScript:
      break;
  }
  return "end of script";
}

/// A function for each rule; each begins at the next token and leaves what it read behind.
class Parser {
 public:
  explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  Block parse() {
    Block block = readStatements();
    if (token().kind != Token::Kind::endOfScript) refuse("end of script");
    return block;
  }

 private:
  using What = decltype(ScriptStatement::what);
  using Rule = ScriptExpression (Parser::*)();

  /// One level deeper for as long as it lives.
  class Level {
   public:
    explicit Level(std::size_t& depth) : depth_(depth) { ++depth_; }
    ~Level() { --depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    std::size_t& depth_;
  };

  Level deeper() {
    if (depth_ == deepestNesting) {
      throw ScriptError::syntax(ScriptError::generalError, "The script is nested too deeply.",
                                token().range);
    }
    return Level(depth_);
  }

  const Token& token() const { return tokens_[next_]; }
  bool isAt(const char* text) const { return token().isWord(text) || token().isSymbol(text); }

  /// Goes on when the next token is that word or symbol.
  bool take(const char* text) {
    if (!isAt(text)) return false;
    ++next_;
    return true;
  }
  void expect(const char* text) {
    if (!take(text)) refuse(quoted(text));
  }
  void expectEndOfLine() {
    if (token().kind != Token::Kind::endOfLine) refuse("end of line");
    ++next_;
  }

  [[noreturn]] void refuse(const std::string& expected) const {
    throw ScriptError::syntax(ScriptError::unexpectedToken,
                              "Expected " + expected + " but found " + described(token()) + ".",
                              token().range);
  }
  void expectToBeWithin(const char* block, std::size_t depth, const Token& word) const {
    if (depth > 0) return;
    throw ScriptError::syntax(ScriptError::badToken,
                              described(word) + " can\u2019t go outside of " + quoted(block) + ".",
                              word.range);
  }
  /// What browsers understand means nothing where none is told.
  void expectToBeTelling(const Token& word) const { expectToBeWithin("tell", tells_, word); }

  /// From `first` to the token that was read last.
  ScriptRange rangeFrom(const ScriptRange& first) const {
    ScriptRange range = first;
    if (next_ > 0) range.end = tokens_[next_ - 1].range.end;
    return range;
  }
  ScriptRange restOfLine() const {
    ScriptRange range = token().range;
    for (std::size_t index = next_; tokens_[index].kind != Token::Kind::endOfLine &&
                                    tokens_[index].kind != Token::Kind::endOfScript;
         ++index) {
      range.end = tokens_[index].range.end;
    }
    return range;
  }

  /// Up to the end of the block that they are in.
  Block readStatements() {
    Block block;
    while (!isAt("end") && !isAt("else") && token().kind != Token::Kind::endOfScript) {
      const ScriptRange range = restOfLine();
      block.push_back({range, readStatement()});
      if (token().kind != Token::Kind::endOfScript) expectEndOfLine();
    }
    return block;
  }

  Block readBlock(const char* name) {
    expectEndOfLine();
    Block block = readStatements();
    expect("end");
    expect(name);
    return block;
  }

  What readStatement() {
    const Level level = deeper();
    if (take("tell")) return readTell();
    if (take("repeat")) return readRepeat();
    if (take("if")) return readIf();
    if (take("try")) return ScriptStatement::Try{readBlock("try")};
    if (take("considering")) {
      expect("case");
      return ScriptStatement::ConsideringCase{readBlock("considering")};
    }
    return readSimpleStatement();
  }

  What readSimpleStatement() {
    if (take("set")) return readSet();
    if (take("return")) return readReturn();
    if (isAt("exit")) {
      expectToBeWithin("repeat", repeats_, token());
      ++next_;
      expect("repeat");
      return ScriptStatement::ExitRepeat{};
    }
    if (isAt("activate")) {
      expectToBeTelling(token());
      ++next_;
      return ScriptStatement::Activate{};
    }
    if (isAtCommand()) return ScriptStatement::Command{readExpression()};
    refuse("a statement");
  }

  What readTell() {
    expect("application");
    expect("id");
    if (token().kind != Token::Kind::text) refuse("text");
    std::string application = token().text;
    ++next_;
    const Level told(tells_);
    return ScriptStatement::Tell{std::move(application), readBlock("tell")};
  }

  What readRepeat() {
    expect("with");
    std::string variable = readVariable();
    expect("in");
    ScriptExpression list = readExpression();
    const Level repeated(repeats_);
    return ScriptStatement::RepeatWith{std::move(variable), std::move(list), readBlock("repeat")};
  }

  What readIf() {
    ScriptStatement::If statement;
    ScriptExpression condition = readExpression();
    expect("then");
    if (token().kind != Token::Kind::endOfLine) {
      const ScriptRange range = restOfLine();
      Block body;
      body.push_back({range, readSimpleStatement()});
      statement.branches.push_back({std::move(condition), std::move(body)});
      return statement;
    }
    ++next_;
    statement.branches.push_back({std::move(condition), readStatements()});
    while (take("else")) {
      if (!take("if")) {
        expectEndOfLine();
        statement.branches.push_back({std::nullopt, readStatements()});
        break;
      }
      condition = readExpression();
      expect("then");
      expectEndOfLine();
      statement.branches.push_back({std::move(condition), readStatements()});
    }
    expect("end");
    expect("if");
    return statement;
  }

  What readReturn() {
    const bool isBare =
        token().kind == Token::Kind::endOfLine || token().kind == Token::Kind::endOfScript;
    if (isBare) return ScriptStatement::Return{std::nullopt};
    return ScriptStatement::Return{readExpression()};
  }

  What readSet() {
    if (isAt("current") || isAt("active") || isAt("index")) {
      expectToBeTelling(token());
      return readSetOfWindow();
    }
    std::string variable = readVariable();
    expect("to");
    return ScriptStatement::Set{std::move(variable), readExpression()};
  }

  What readSetOfWindow() {
    if (take("current")) {
      expect("tab");
      ScriptExpression window = readObject();
      return ScriptStatement::SelectTab{std::move(window), readNewValue()};
    }
    if (take("active")) {
      expect("tab");
      expect("index");
      ScriptExpression window = readObject();
      return ScriptStatement::SelectTabWithIndex{std::move(window), readNewValue()};
    }
    expect("index");
    ScriptExpression window = readObject();
    expect("to");
    // The only place that a window can be sent to.
    if (token().kind != Token::Kind::integer || token().number != 1) refuse("1");
    ++next_;
    return ScriptStatement::BringToFront{std::move(window)};
  }

  ScriptExpression readObject() {
    expect("of");
    return readOperand();
  }
  ScriptExpression readNewValue() {
    expect("to");
    return readExpression();
  }

  std::string readVariable() {
    if (token().kind != Token::Kind::word || isReservedWord(token().text)) refuse("a variable");
    return tokens_[next_++].text;
  }

  // Expressions, the loosest rule first: "Operator Precedence" in the AppleScript Language Guide.

  bool isAtCommand() const { return isAt("do") || isAt("execute"); }

  ScriptExpression readExpression() {
    const Level level = deeper();
    return isAtCommand() ? readCommand() : readDisjunction();
  }

  ScriptExpression readCommand() {
    const Token& word = token();
    const ScriptRange first = word.range;
    if (take("execute")) {
      expectToBeTelling(word);
      ScriptExpression tab = readExpression();
      expect("javascript");
      ScriptExpression source = readExpression();
      return operation(first, ScriptOperator::runJavaScript, std::move(source), std::move(tab));
    }
    expect("do");
    expect("javascript");
    expectToBeTelling(word);
    ScriptExpression source = readExpression();
    expect("in");
    ScriptExpression tab = readExpression();
    return operation(first, ScriptOperator::runJavaScript, std::move(source), std::move(tab));
  }

  ScriptExpression readDisjunction() {
    return readChain("or", ScriptOperator::disjunction, &Parser::readConjunction);
  }
  ScriptExpression readConjunction() {
    return readChain("and", ScriptOperator::conjunction, &Parser::readNegation);
  }

  ScriptExpression readNegation() {
    const ScriptRange first = token().range;
    if (!take("not")) return readEquality();
    const Level level = deeper();
    ScriptExpression operand = readNegation();
    return operation(first, ScriptOperator::negation, std::move(operand));
  }

  // Comparisons do not chain.
  ScriptExpression readEquality() {
    const ScriptRange first = token().range;
    ScriptExpression left = readComparison();
    std::optional<ScriptOperator> symbol;
    if (take("is")) {
      symbol = take("not") ? ScriptOperator::notEqual : ScriptOperator::equal;
    } else if (take("=")) {
      symbol = ScriptOperator::equal;
    } else if (take("/=")) {
      symbol = ScriptOperator::notEqual;
    }
    if (!symbol) return left;
    ScriptExpression right = readComparison();
    return operation(first, *symbol, std::move(left), std::move(right));
  }

  ScriptExpression readComparison() {
    const ScriptRange first = token().range;
    ScriptExpression left = readConcatenation();
    std::optional<ScriptOperator> symbol;
    if (take("<"))
      symbol = ScriptOperator::less;
    else if (take("<="))
      symbol = ScriptOperator::lessOrEqual;
    else if (take(">"))
      symbol = ScriptOperator::greater;
    else if (take(">="))
      symbol = ScriptOperator::greaterOrEqual;
    else if (take("contains"))
      symbol = ScriptOperator::contains;
    if (!symbol) return left;
    ScriptExpression right = readConcatenation();
    return operation(first, *symbol, std::move(left), std::move(right));
  }

  ScriptExpression readConcatenation() {
    return readChain("&", ScriptOperator::concatenation, &Parser::readSum);
  }
  ScriptExpression readSum() { return readChain("+", ScriptOperator::sum, &Parser::readOperand); }

  /// A chain is one operation however long it is, so that only nesting makes a tree deep.
  ScriptExpression readChain(const char* token, ScriptOperator symbol, Rule readPart) {
    const ScriptRange first = this->token().range;
    ScriptExpression part = (this->*readPart)();
    if (!isAt(token)) return part;
    std::vector<ScriptExpression> parts;
    parts.push_back(std::move(part));
    while (take(token)) parts.push_back((this->*readPart)());
    return {rangeFrom(first), ScriptExpression::Operation{symbol, std::move(parts)}};
  }

  ScriptExpression readOperand() {
    const ScriptRange first = token().range;
    if (token().kind == Token::Kind::text) return literal(tokens_[next_++].text, first);
    if (token().kind == Token::Kind::integer) return literal(tokens_[next_++].number, first);
    if (take("true")) return literal(true, first);
    if (take("false")) return literal(false, first);
    if (take("missing")) {
      expect("value");
      return literal(MissingValue{}, first);
    }
    if (take("(")) {
      ScriptExpression inner = readExpression();
      expect(")");
      return inner;
    }
    if (take("character")) {
      expect("id");
      const Level level = deeper();
      return operation(first, ScriptOperator::characterWithID, readOperand());
    }
    if (const auto property = propertyAtToken()) return readProperty(*property);
    if (isAt("windows")) {
      expectToBeTelling(token());
      ++next_;
      return {first, ScriptExpression::Windows{}};
    }
    if (token().kind != Token::Kind::word || isReservedWord(token().text)) refuse("expression");
    return {first, ScriptExpression::Variable{readVariable()}};
  }

  std::optional<ScriptOperator> propertyAtToken() const {
    if (isAt("url")) return ScriptOperator::url;
    if (isAt("name") || isAt("title")) return ScriptOperator::title;
    if (isAt("tabs")) return ScriptOperator::tabs;
    return std::nullopt;
  }

  ScriptExpression readProperty(ScriptOperator property) {
    const ScriptRange first = token().range;
    expectToBeTelling(token());
    ++next_;
    const Level level = deeper();
    ScriptExpression object = readObject();
    return operation(first, property, std::move(object));
  }

  ScriptExpression literal(ScriptExpression::Literal value, const ScriptRange& first) const {
    return {rangeFrom(first), std::move(value)};
  }

  template <typename... Operands>
  ScriptExpression operation(const ScriptRange& first, ScriptOperator symbol,
                             Operands... operands) const {
    std::vector<ScriptExpression> all;
    (all.push_back(std::move(operands)), ...);
    return {rangeFrom(first), ScriptExpression::Operation{symbol, std::move(all)}};
  }

  const std::vector<Token> tokens_;
  std::size_t next_ = 0;
  std::size_t depth_ = 0;
  std::size_t tells_ = 0;
  std::size_t repeats_ = 0;
};

}  // namespace

ScriptStatement::Block parseScript(std::string_view script) {
  return Parser(readTokens(script)).parse();
}

}  // namespace talmo
