#include "platform/linux/osascript/Osascript.h"

#include <cstddef>
#include <optional>
#include <variant>

#include "platform/linux/osascript/ScriptError.h"
#include "platform/linux/osascript/ScriptRun.h"

namespace talmo {
namespace {

constexpr int scriptFailed = 1;
constexpr int usageError = 2;

std::optional<std::string> scriptOf(std::span<const std::string> arguments) {
  if (arguments.empty() || arguments.size() % 2 != 0) return std::nullopt;
  std::string script;
  for (std::size_t index = 0; index < arguments.size(); index += 2) {
    if (arguments[index] != "-e") return std::nullopt;
    if (index > 0) script += '\n';
    script += arguments[index + 1];
  }
  return script;
}

/// As the Mac's osascript reports it, for scripts without a file; and for people, the line.
std::string report(const ScriptError& error) {
  const ScriptRange& range = error.range;
  std::string text = std::to_string(range.begin) + ":" + std::to_string(range.end);
  if (error.kind == ScriptError::Kind::syntax) {
    text += ": syntax error: Line " + std::to_string(range.line) + ", column " +
            std::to_string(range.column) + ": ";
  } else {
    text += ": execution error: ";
  }
  return text + error.message + " (" + std::to_string(error.number) + ")\n";
}

}  // namespace

Osascript Osascript::run(std::span<const std::string> arguments, const BrowserResolver& browsers) {
  const std::optional<std::string> script = scriptOf(arguments);
  if (!script) {
    return {.status = usageError, .errors = "usage: osascript -e script [-e script ...]\n"};
  }
  const ScriptOutcome outcome = runScript(*script, browsers);
  if (const auto* error = std::get_if<ScriptError>(&outcome)) {
    return {.status = scriptFailed, .errors = report(*error)};
  }
  const auto& result = std::get<std::optional<std::string>>(outcome);
  return {.output = result ? *result + "\n" : ""};
}

}  // namespace talmo
