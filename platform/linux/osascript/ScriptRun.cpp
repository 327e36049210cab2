#include "platform/linux/osascript/ScriptRun.h"

#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <utf8.h>
#include <utility>
#include <vector>

#include "platform/linux/osascript/ScriptedBrowser.h"
#include "platform/linux/osascript/ScriptParser.h"
#include "platform/linux/osascript/ScriptStatement.h"
#include "platform/linux/osascript/ScriptText.h"
#include "platform/linux/osascript/ScriptValue.h"

namespace talmo {
namespace {

using Block = ScriptStatement::Block;
using Text = std::optional<std::string>;

constexpr std::size_t bytesOfAStep = 256;

std::string cannot(const std::string& what) {
  return "Can\u2019t " + what + ".";
}

/// A value for as long as it lives, and then the one before.
template <typename Value>
class Meanwhile {
 public:
  Meanwhile(Value& place, Value value)
      : place_(place), before_(std::exchange(place, std::move(value))) {}
  ~Meanwhile() { place_ = std::move(before_); }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  Value& place_;
  Value before_;
};

/// One run. Errors of the script are thrown as `ScriptError`.
class Run {
 public:
  Run(const BrowserResolver& resolver, const ScriptLimits& limits)
      : resolver_(resolver), limits_(limits) {}

  std::optional<std::string> operator()(const Block& script) {
    carryOut(script);
    if (!result_) return std::nullopt;
    return resultText(*result_);
  }

 private:
  /// How it goes on after a statement.
  enum class Flow { next, exitRepeat, returned };

  // Statements.

  Flow carryOut(const Block& block) {
    for (const ScriptStatement& statement : block) {
      spend(1, statement.range);
      const Flow flow = std::visit(
          [&](const auto& what) { return carryOut(what, statement.range); }, statement.what);
      if (flow != Flow::next) return flow;
    }
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::Set& statement, const ScriptRange&) {
    variables_[statement.variable] = evaluate(statement.value);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::SelectTab& statement, const ScriptRange& range) {
    const auto [browser, window] = evaluateAs<WindowReference>(statement.window, "window");
    const auto tab = evaluateAs<TabReference>(statement.tab, "tab");
    // A tab of another browser has no place in the window, whatever its name.
    browser->selectTab(tab.browser == browser ? window : BrowserWindow{.id = window.id}, tab.id,
                       range);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::SelectTabWithIndex& statement, const ScriptRange& range) {
    const auto [browser, window] = evaluateAs<WindowReference>(statement.window, "window");
    browser->selectTab(window, evaluateAs<std::int64_t>(statement.index, "integer"), range);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::BringToFront& statement, const ScriptRange& range) {
    const auto [browser, window] = evaluateAs<WindowReference>(statement.window, "window");
    browser->bringToFront(window, range);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::Activate&, const ScriptRange& range) {
    told_->activate(range);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::Command& statement, const ScriptRange&) {
    evaluate(statement.expression);
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::Return& statement, const ScriptRange&) {
    if (statement.value) result_ = evaluate(*statement.value);
    return Flow::returned;
  }

  static Flow carryOut(const ScriptStatement::ExitRepeat&, const ScriptRange&) {
    return Flow::exitRepeat;
  }

  Flow carryOut(const ScriptStatement::Tell& statement, const ScriptRange& range) {
    const Meanwhile<ScriptedBrowser*> told(told_, &browser(statement.application, range));
    return carryOut(statement.body);
  }

  Flow carryOut(const ScriptStatement::RepeatWith& statement, const ScriptRange&) {
    const ScriptValue list = evaluate(statement.list);
    if (const auto* tabs = std::get_if<std::vector<TabReference>>(&list)) {
      return repeatWith(statement, *tabs);
    }
    if (const auto* windows = std::get_if<std::vector<WindowReference>>(&list)) {
      return repeatWith(statement, *windows);
    }
    throw wrongType(list, "list", statement.list.range);
  }

  template <typename Item>
  Flow repeatWith(const ScriptStatement::RepeatWith& statement, const std::vector<Item>& items) {
    for (const Item& item : items) {
      spend(1, statement.list.range);
      variables_[statement.variable] = item;
      const Flow flow = carryOut(statement.body);
      if (flow == Flow::exitRepeat) break;
      if (flow == Flow::returned) return flow;
    }
    return Flow::next;
  }

  Flow carryOut(const ScriptStatement::Try& statement, const ScriptRange&) {
    try {
      return carryOut(statement.body);
    } catch (const ScriptError& error) {
      if (!error.canBeCaught) throw;
      return Flow::next;
    }
  }

  Flow carryOut(const ScriptStatement::ConsideringCase& statement, const ScriptRange&) {
    const Meanwhile<LetterCase> considered(letterCase_, LetterCase::considered);
    return carryOut(statement.body);
  }

  Flow carryOut(const ScriptStatement::If& statement, const ScriptRange&) {
    for (const ScriptStatement::Branch& branch : statement.branches) {
      if (!branch.condition || evaluateAs<bool>(*branch.condition, "boolean")) {
        return carryOut(branch.body);
      }
    }
    return Flow::next;
  }

  // Expressions.

  ScriptValue evaluate(const ScriptExpression& expression) {
    ScriptValue value = std::visit(
        [&](const auto& what) { return evaluate(what, expression.range); }, expression.what);
    spend(1 + sizeOf(value) / bytesOfAStep, expression.range);
    return value;
  }

  template <typename Type>
  Type evaluateAs(const ScriptExpression& expression, const char* type) {
    ScriptValue value = evaluate(expression);
    if (auto* found = std::get_if<Type>(&value)) return std::move(*found);
    throw wrongType(value, type, expression.range);
  }

  static ScriptValue evaluate(const ScriptExpression::Literal& literal, const ScriptRange&) {
    return std::visit([](const auto& value) { return ScriptValue(value); }, literal);
  }

  ScriptValue evaluate(const ScriptExpression::Variable& variable, const ScriptRange& range) const {
    const auto found = variables_.find(variable.name);
    if (found != variables_.end()) return found->second;
    throw ScriptError::execution(ScriptError::undefinedVariable,
                                 "The variable " + variable.name + " is not defined.", range);
  }

  ScriptValue evaluate(const ScriptExpression::Windows&, const ScriptRange& range) {
    std::vector<WindowReference> windows;
    for (BrowserWindow& window : told_->windows(range))
      windows.push_back({told_, std::move(window)});
    return windows;
  }

  ScriptValue evaluate(const ScriptExpression::Operation& operation, const ScriptRange& range) {
    const std::vector<ScriptExpression>& operands = operation.operands;
    switch (operation.symbol) {
      case ScriptOperator::negation:
        return !evaluateAs<bool>(operands[0], "boolean");
      case ScriptOperator::characterWithID:
        return characterWithID(evaluateAs<std::int64_t>(operands[0], "integer"), range);
      case ScriptOperator::url:
        return read("URL", &ScriptedBrowser::url, operands[0], range);
      case ScriptOperator::title: {
        ScriptValue title = read("title", &ScriptedBrowser::title, operands[0], range);
        // What a browser says that has no title to show.
        return std::holds_alternative<MissingValue>(title) ? ScriptValue(std::string())
                                                           : std::move(title);
      }
      case ScriptOperator::tabs:
        return tabs(evaluateAs<WindowReference>(operands[0], "window"));
      case ScriptOperator::equal:
        return areEqual(operands);
      case ScriptOperator::notEqual:
        return !areEqual(operands);
      case ScriptOperator::less:
        return compare(operands) < 0;
      case ScriptOperator::lessOrEqual:
        return compare(operands) <= 0;
      case ScriptOperator::greater:
        return compare(operands) > 0;
      case ScriptOperator::greaterOrEqual:
        return compare(operands) >= 0;
      case ScriptOperator::contains: {
        const auto text = evaluateAs<std::string>(operands[0], "Unicode text");
        const auto part = evaluateAs<std::string>(operands[1], "Unicode text");
        return scriptTextContains(text, part, letterCase_);
      }
      case ScriptOperator::runJavaScript:
        return runJavaScript(operands, range);
      case ScriptOperator::conjunction:
        for (const ScriptExpression& operand : operands) {
          if (!evaluateAs<bool>(operand, "boolean")) return false;
        }
        return true;
      case ScriptOperator::disjunction:
        for (const ScriptExpression& operand : operands) {
          if (evaluateAs<bool>(operand, "boolean")) return true;
        }
        return false;
      case ScriptOperator::sum:
        return sum(operands, range);
      case ScriptOperator::concatenation:
        return concatenation(operands, range);
    }
    return MissingValue();
  }

  static ScriptValue characterWithID(std::int64_t number, const ScriptRange& range) {
    // The last character of Unicode, and the numbers that are not for characters.
    constexpr std::int64_t last = 0x10FFFF;
    const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
    if (number < 0 || number > last || isSurrogate) throw wrongType(number, "character", range);
    std::string text;
    utf8::append(static_cast<std::uint32_t>(number), std::back_inserter(text));
    return text;
  }

  using Property = Text (ScriptedBrowser::*)(const std::string&, const ScriptRange&);

  ScriptValue read(const std::string& name, Property property, const ScriptExpression& object,
                   const ScriptRange& range) {
    const ScriptValue of = evaluate(object);
    if (const auto* tab = std::get_if<TabReference>(&of)) {
      return textOrNothing((tab->browser->*property)(tab->id, range), range);
    }
    throw ScriptError::execution(ScriptError::noSuchObject,
                                 cannot("get " + name + " of " + sourceText(of)), range);
  }

  static ScriptValue tabs(const WindowReference& reference) {
    std::vector<TabReference> tabs;
    tabs.reserve(reference.window.tabs.size());
    for (const std::string& id : reference.window.tabs) tabs.push_back({reference.browser, id});
    return tabs;
  }

  bool areEqual(const std::vector<ScriptExpression>& operands) {
    const ScriptValue left = evaluate(operands[0]);
    const ScriptValue right = evaluate(operands[1]);
    const auto* const leftText = std::get_if<std::string>(&left);
    const auto* const rightText = std::get_if<std::string>(&right);
    if (leftText == nullptr || rightText == nullptr) return left == right;
    return compareScriptTexts(*leftText, *rightText, letterCase_) == 0;
  }

  std::strong_ordering compare(const std::vector<ScriptExpression>& operands) {
    const ScriptValue left = evaluate(operands[0]);
    if (const auto* text = std::get_if<std::string>(&left)) {
      const auto right = evaluateAs<std::string>(operands[1], "Unicode text");
      return compareScriptTexts(*text, right, letterCase_);
    }
    if (const auto* number = std::get_if<std::int64_t>(&left)) {
      return *number <=> evaluateAs<std::int64_t>(operands[1], "number");
    }
    throw wrongType(left, "number", operands[0].range);
  }

  ScriptValue runJavaScript(const std::vector<ScriptExpression>& operands,
                            const ScriptRange& range) {
    const auto source = evaluateAs<std::string>(operands[0], "Unicode text");
    const auto tab = evaluateAs<TabReference>(operands[1], "tab");
    return textOrNothing(tab.browser->runJavaScript(tab.id, source, range), range);
  }

  ScriptValue sum(const std::vector<ScriptExpression>& operands, const ScriptRange& range) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t total = 0;
    for (const ScriptExpression& operand : operands) {
      // Nothing makes a number negative.
      const auto number = evaluateAs<std::int64_t>(operand, "number");
      if (number > Limits::max() - total) {
        throw ScriptError::execution(ScriptError::numericOverflow,
                                     "The result of a numeric operation was too large.", range);
      }
      total += number;
    }
    return total;
  }

  ScriptValue concatenation(const std::vector<ScriptExpression>& operands,
                            const ScriptRange& range) {
    auto text = evaluateAs<std::string>(operands[0], "Unicode text");
    for (std::size_t index = 1; index < operands.size(); ++index) {
      const std::string next = asText(evaluate(operands[index]), operands[index].range);
      checkSize(text.size() + next.size(), range);
      text += next;
    }
    return text;
  }

  /// As the right side of `&` takes it.
  static std::string asText(const ScriptValue& value, const ScriptRange& range) {
    const bool isPlain =
        std::holds_alternative<MissingValue>(value) || std::holds_alternative<bool>(value) ||
        std::holds_alternative<std::int64_t>(value) || std::holds_alternative<std::string>(value);
    if (!isPlain) throw wrongType(value, "Unicode text", range);
    return resultText(value);
  }

  ScriptValue textOrNothing(Text text, const ScriptRange& range) const {
    if (!text) return MissingValue();
    checkSize(text->size(), range);
    return std::move(*text);
  }

  ScriptedBrowser& browser(const std::string& bundleID, const ScriptRange& range) {
    const auto known = browsers_.find(bundleID);
    if (known != browsers_.end()) return known->second;
    std::shared_ptr<BrowserModel> model = resolver_(bundleID);
    if (!model) {
      throw ScriptError::execution(ScriptError::noSuchObject,
                                   cannot("get application id " + sourceText(bundleID)), range);
    }
    return browsers_.emplace(bundleID, ScriptedBrowser(bundleID, std::move(model))).first->second;
  }

  static ScriptError wrongType(const ScriptValue& value, const std::string& type,
                               const ScriptRange& range) {
    return ScriptError::execution(ScriptError::cannotCoerce,
                                  cannot("make " + sourceText(value) + " into type " + type),
                                  range);
  }

  // Limits.

  /// A `try` goes on after a text that is too long, so that one tab cannot spoil a scan.
  void checkSize(std::size_t textSize, const ScriptRange& range) const {
    if (textSize <= limits_.textSize) return;
    throw ScriptError::execution(ScriptError::generalError, "The text is too long.", range);
  }

  void spend(std::size_t steps, const ScriptRange& range) {
    if (steps <= limits_.steps - steps_) {
      steps_ += steps;
      return;
    }
    ScriptError error =
        ScriptError::execution(ScriptError::generalError, "The script does too much.", range);
    error.canBeCaught = false;
    throw error;
  }

  const BrowserResolver& resolver_;
  const ScriptLimits limits_;
  std::size_t steps_ = 0;
  std::map<std::string, ScriptedBrowser> browsers_;
  // Not null within a `tell`, and the parser sees to it that it is not needed elsewhere.
  ScriptedBrowser* told_ = nullptr;
  LetterCase letterCase_ = LetterCase::ignored;
  std::map<std::string, ScriptValue> variables_;
  std::optional<ScriptValue> result_;
};

}  // namespace

ScriptOutcome runScript(std::string_view script, const BrowserResolver& browsers,
                        const ScriptLimits& limits) {
  try {
    return Run(browsers, limits)(parseScript(script));
  } catch (const ScriptError& error) {
    return error;
  }
}

}  // namespace talmo
