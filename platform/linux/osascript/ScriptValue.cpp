#include "platform/linux/osascript/ScriptValue.h"

namespace talmo {
namespace {

std::string escaped(const std::string& text) {
  std::string result;
  for (const char character : text) {
    if (character == '"' || character == '\\') result += '\\';
    result += character;
  }
  return result;
}

struct ResultText {
  std::string operator()(MissingValue) const { return "missing value"; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const TabReference& tab) const { return tabText(tab.id); }
  std::string operator()(const WindowReference& reference) const {
    return windowText(reference.window.id);
  }
  template <typename Item>
  std::string operator()(const std::vector<Item>& items) const {
    std::string result;
    for (const Item& item : items) {
      if (!result.empty()) result += ", ";
      result += (*this)(item);
    }
    return result;
  }
};

struct Size {
  template <typename Plain>
  std::size_t operator()(const Plain&) const {
    return sizeof(Plain);
  }
  std::size_t operator()(const std::string& value) const { return value.size(); }
  std::size_t operator()(const WindowReference& reference) const {
    return sizeof(reference) + sizeof(std::string) * reference.window.tabs.size();
  }
  template <typename Item>
  std::size_t operator()(const std::vector<Item>& items) const {
    std::size_t size = 0;
    for (const Item& item : items) size += (*this)(item);
    return size;
  }
};

}  // namespace

std::string resultText(const ScriptValue& value) {
  return std::visit(ResultText(), value);
}

std::string sourceText(const ScriptValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return "\"" + escaped(*text) + "\"";
  return resultText(value);
}

std::string tabText(const std::string& id) {
  return "tab id " + id;
}

std::string windowText(const std::string& id) {
  return "window id " + id;
}

std::size_t sizeOf(const ScriptValue& value) {
  return std::visit(Size(), value);
}

}  // namespace talmo
