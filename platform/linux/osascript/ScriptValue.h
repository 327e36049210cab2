#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/linux/osascript/BrowserWindow.h"
#include "platform/linux/osascript/MissingValue.h"

namespace talmo {

class ScriptedBrowser;

/// A tab, whether or not it still exists.
struct TabReference {
  /// Outlives the value.
  ScriptedBrowser* browser;
  std::string id;

  friend bool operator==(const TabReference&, const TabReference&) = default;
};

/// A window, whether or not it still exists, with the tabs that it had when it was found.
struct WindowReference {
  /// Outlives the value.
  ScriptedBrowser* browser;
  BrowserWindow window;

  friend bool operator==(const WindowReference& left, const WindowReference& right) {
    return left.browser == right.browser && left.window.id == right.window.id;
  }
};

/// What a variable of a script holds. Numbers are whole; lists hold windows or tabs.
using ScriptValue =
    std::variant<MissingValue, bool, std::int64_t, std::string, TabReference, WindowReference,
                 std::vector<TabReference>, std::vector<WindowReference>>;

/// As a result is printed: texts as they are.
std::string resultText(const ScriptValue& value);

/// As a message names it: texts in quotes.
std::string sourceText(const ScriptValue& value);

/// The same for a tab and for a window with that name.
std::string tabText(const std::string& id);
std::string windowText(const std::string& id);

/// About how many bytes it takes to copy.
std::size_t sizeOf(const ScriptValue& value);

}  // namespace talmo
