#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <gtest/gtest.h>

#include "platform/linux/osascript/MemoryBrowser.h"
#include "platform/linux/osascript/ScriptRun.h"

namespace talmo::test {

/// Runs scripts against one browser in memory, "test.browser".
class ScriptTest : public testing::Test {
 protected:
  ScriptOutcome outcome(std::string_view script, const ScriptLimits& limits = {}) {
    return runScript(
        script,
        [this](const std::string& bundleID) -> std::shared_ptr<BrowserModel> {
          ++resolved;
          if (bundleID != "test.browser") return nullptr;
          return browser;
        },
        limits);
  }

  /// What the script returns, or its error in words: "syntax -2741 at 1:7: ...", "execution ...".
  std::string answer(std::string_view script) {
    const ScriptOutcome found = outcome(script);
    if (const auto* error = std::get_if<ScriptError>(&found)) return words(*error);
    return std::get<std::optional<std::string>>(found).value_or("nothing");
  }

  /// The value of an expression.
  std::string value(const std::string& expression) { return answer("return " + expression); }

  /// What a script answers whose lines are told to the browser.
  std::string told(const std::string& lines) {
    return answer("tell application id \"test.browser\"\n" + lines + "\nend tell");
  }

  static std::string words(const ScriptError& error) {
    const bool isSyntax = error.kind == ScriptError::Kind::syntax;
    return std::string(isSyntax ? "syntax " : "execution ") + std::to_string(error.number) +
           " at " + std::to_string(error.range.line) + ":" + std::to_string(error.range.column) +
           ": " + error.message;
  }

  const std::shared_ptr<MemoryBrowser> browser = std::make_shared<MemoryBrowser>();
  /// How often a browser was looked for.
  int resolved = 0;
};

}  // namespace talmo::test
