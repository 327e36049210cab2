#include "tests/unit/structure/MacDeclarations.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string_view>

namespace talmo::test {
namespace {

/// Code without its comments and its lines for the preprocessor, and these.
struct Text {
  std::string code;
  std::string macros;
};

Text read(const std::string& source) {
  static const std::regex comment(R"(//[^\n]*)");
  Text text;
  std::istringstream lines(std::regex_replace(source, comment, ""));
  bool inMacro = false;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t first = line.find_first_not_of(' ');
    inMacro = inMacro || (first != std::string::npos && line[first] == '#');
    (inMacro ? text.macros : text.code) += line + '\n';
    inMacro = inMacro && line.ends_with('\\');
  }
  return text;
}

void countWords(const std::string& text, std::map<std::string, int>& counts) {
  static const std::regex word(R"([A-Za-z_]\w*)");
  for (std::sregex_iterator found(text.begin(), text.end(), word), end; found != end; ++found) {
    ++counts[found->str()];
  }
}

/// Without what the macros of availability, nullability and ownership say.
std::string withoutAttributes(const std::string& statement) {
  static const std::regex attribute(
      R"(\b(API|NS|CF|OS|CG|CA|TALMO)_[A-Z_]+\b(\((\w+\([\d., ]*\)|[\w., ]*)\))?|\b_N\w+\b)"
      R"(|__attribute__\(\(.*\)\))");
  return std::regex_replace(statement, attribute, " ");
}

/// The text after the parentheses that it begins with.
std::string afterParentheses(const std::string& text) {
  std::size_t depth = 0;
  for (std::size_t index = text.find('('); index < text.size(); ++index) {
    if (text[index] == '(') ++depth;
    if (text[index] == ')' && --depth == 0) return text.substr(index + 1);
  }
  return "";
}

std::string firstMatch(const std::string& text, const std::regex& regex) {
  std::smatch match;
  return std::regex_search(text, match, regex) ? match[1].str() : "";
}

/// "name" or "first:second:".
std::string selectorOf(const std::string& method) {
  static const std::regex part(R"((\w+)\s*:)");
  static const std::regex name(R"((\w+))");
  const std::string rest = afterParentheses(method);
  std::string selector;
  for (std::sregex_iterator found(rest.begin(), rest.end(), part), end; found != end; ++found) {
    selector += (*found)[1].str() + ":";
  }
  return selector.empty() ? firstMatch(rest, name) : selector;
}

std::string propertyOf(const std::string& statement) {
  static const std::regex block(R"(\(\s*\^\s*(\w+)\s*\))");
  static const std::regex last(R"((\w+)\s*$)");
  const std::string named = firstMatch(statement, block);
  return named.empty() ? firstMatch(statement, last) : named;
}

/// A property is written by its name or by a selector, and may be read by another.
std::vector<std::string> accessorsOf(const std::string& statement) {
  static const std::regex getter(R"(getter\s*=\s*(\w+))");
  const std::string name = propertyOf(statement);
  std::string setter = "set" + name;
  setter[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(setter[3])));
  return {name, setter, firstMatch(statement, getter)};
}

std::string functionOrConstantOf(const std::string& statement) {
  static const std::regex function(R"((\w+)\s*\()");
  static const std::regex last(R"((\w+)\s*(?:=.*)?$)");
  const std::string name = firstMatch(statement, function);
  return name.empty() ? firstMatch(statement, last) : name;
}

/// What the compiler calls by itself, and what a class must have to be what it is.
bool isCalledByTheLanguage(const std::string& name) {
  static const std::set<std::string> names{
      "arrayWithObjects:count:",
      "copyWithZone:",
      "countByEnumeratingWithState:objects:count:",
      "dealloc",
      "dictionaryWithObjects:forKeys:count:",
      "encodeWithCoder:",
      "initWithCoder:",
      "mutableCopyWithZone:",
      "objectAtIndexedSubscript:",
      "objectForKeyedSubscript:",
      "setObject:atIndexedSubscript:",
      "setObject:forKeyedSubscript:",
      "supportsSecureCoding",
  };
  return names.contains(name) || name.starts_with("numberWith");
}

class Search {
 public:
  explicit Search(const SourceTree& tree) {
    for (const auto& [path, source] : tree) {
      if (!isDeclaration(path) && !isSource(path)) continue;
      const Text text = read(source);
      countWords(text.code, isSource(path) ? used_ : declared_);
      countWords(text.macros, used_);
    }
  }

  static bool isSource(const std::string& path) {
    return path.starts_with("platform/macos/") || path.starts_with("adapter/macos/") ||
           (path.starts_with("tests/macos/") && !isDeclaration(path));
  }

  static bool isDeclaration(const std::string& path) {
    return path.starts_with("tests/macos/declarations/");
  }

  std::vector<std::string> unusedIn(const std::string& source) {
    unused_.clear();
    static const std::regex boundary(R"(;|@end|@optional|@required|extern "C" \{|\n\})");
    const std::string code = read(source).code;
    std::sregex_token_iterator statement(code.begin(), code.end(), boundary, -1);
    for (const std::sregex_token_iterator end; statement != end; ++statement) look(*statement);
    return unused_;
  }

 private:
  void look(std::string statement) {
    static const std::regex type(R"(@(?:interface|protocol)\s+(\w+)\s*(?:<[^\n]*>)?\s*[^\n]*)");
    static const std::regex method(R"(^\s*[-+]\s*\()");
    static const std::regex property(R"(^\s*@property)");
    static const std::regex exported(
        R"(^\s*(\w*_(EXPORT|EXTERN)\w*|extern|static inline|NS_INLINE|static const)\b)");
    statement = declarationOfType(statement, type);
    const std::string plain = withoutAttributes(statement);
    if (std::regex_search(statement, method)) {
      require(selectorOf(plain), wordsOf(selectorOf(plain)));
    } else if (std::regex_search(statement, property)) {
      const std::vector<std::string> accessors = accessorsOf(plain);
      if (std::ranges::none_of(accessors, [this](const auto& name) { return isUsed(name); })) {
        require(accessors.front(), {accessors.front()});
      }
    } else if (std::regex_search(statement, exported)) {
      const std::string name = functionOrConstantOf(plain);
      require(name, {name});
    }
  }

  /// Looks at the classes and protocols whose declarations begin here; what comes after the last.
  std::string declarationOfType(const std::string& statement, const std::regex& type) {
    std::string rest = statement;
    std::smatch match;
    while (std::regex_search(rest, match, type)) {
      // Once where it is declared.
      const std::string name = match[1];
      if (!isUsed(name) && declared_[name] < 2) unused_.push_back(name);
      rest = match.suffix();
    }
    return rest;
  }

  static std::vector<std::string> wordsOf(const std::string& selector) {
    std::vector<std::string> words;
    std::istringstream parts(selector);
    for (std::string part; std::getline(parts, part, ':');) words.push_back(part);
    return words;
  }

  void require(const std::string& name, const std::vector<std::string>& words) {
    if (name.empty() || isCalledByTheLanguage(name)) return;
    if (!std::ranges::all_of(words, [this](const auto& word) { return isUsed(word); })) {
      unused_.push_back(name);
    }
  }

  bool isUsed(const std::string& word) const { return used_.contains(word); }

  std::map<std::string, int> declared_;
  std::map<std::string, int> used_;
  std::vector<std::string> unused_;
};

}  // namespace

std::vector<std::string> unusedDeclarations(const SourceTree& tree) {
  Search search(tree);
  std::vector<std::string> unused;
  for (const auto& [path, source] : tree) {
    if (!Search::isDeclaration(path)) continue;
    for (const std::string& name : search.unusedIn(source)) {
      unused.push_back(path.substr(path.rfind('/') + 1) + ": " + name);
    }
  }
  return unused;
}

}  // namespace talmo::test
