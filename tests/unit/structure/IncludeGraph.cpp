#include "tests/unit/structure/IncludeGraph.h"

#include <algorithm>
#include <array>
#include <functional>
#include <regex>
#include <set>
#include <string_view>

namespace talmo::test {
namespace {

constexpr std::array<std::string_view, 8> program{
    "app", "keys", "players", "web", "nowplaying", "permissions", "panel", "onboarding"};

/// The room of a file: "app", "support", "platform", "platform/linux", "tests", ...
std::string room(std::string_view path) {
  const std::size_t slash = path.find('/');
  const std::string_view top = path.substr(0, slash);
  if (top != "platform") return std::string(top);
  const std::size_t second = path.find('/', slash + 1);
  return std::string(path.substr(0, second == std::string_view::npos ? slash : second));
}

bool isProgram(std::string_view name) {
  return std::ranges::find(program, name) != program.end();
}

bool isBackend(std::string_view name) {
  return name.starts_with("platform/");
}

/// The backend of the system that a folder of the adapter is for: "platform/linux" for a file of
/// "adapter/linux"; empty for the portable files.
std::string backendOfAdapter(const std::string& path) {
  const std::size_t slash = path.find('/');
  const std::size_t second = path.find('/', slash + 1);
  if (room(path) != "adapter" || second == std::string::npos) return "";
  return "platform" + path.substr(slash, second - slash);
}

/// Whether it is the source of a backend that makes the program.
bool isEntry(const std::string& path) {
  return path == room(path) + "/main.cpp" || path == "platform/macos/AppDelegate.mm";
}

bool mayInclude(const std::string& path, const std::string& included) {
  const std::string from = room(path);
  const std::string to = room(included);
  if (from == "tests" || from == "bench" || from == "fuzz") return true;
  if (to == "support" || to == "platform") return true;
  if (isProgram(from)) return isProgram(to);
  if (isEntry(path) && to == "app") return true;
  if (from == "adapter" && to == "adapter") {
    const std::string inner = backendOfAdapter(included);
    return inner.empty() || inner == backendOfAdapter(path);
  }
  return from == to || backendOfAdapter(path) == to;
}

/// System, toolkit and vendor headers, which only backends and the adapter may use.
const std::regex& systemHeader() {
  static const std::regex regex(
      R"((Q[A-Z]\w*|xcb/.*|X11/.*|xkbcommon/.*|dbus/.*|systemd/.*|pulse/.*|gio/.*|glib.*|Cocoa/.*|)"
      R"(AppKit/.*|Foundation/.*|CoreGraphics/.*|CoreAudio/.*|ApplicationServices/.*|objc/.*|)"
      R"(CoreFoundation/.*|dispatch/.*|os/.*|unistd\.h|sys/.*|spawn\.h|dlfcn\.h|poll\.h|pthread\.h|signal\.h|fcntl\.h|)"
      R"(windows\.h))");
  return regex;
}

const std::regex& systemCondition() {
  static const std::regex regex(
      R"(^\s*#\s*(el)?if.*\b(__APPLE__|__linux__|_WIN32|__unix__|TARGET_OS_\w+|TALMO_MACOS|TALMO_LINUX)\b)");
  return regex;
}

struct Include {
  std::string name;
  bool isQuoted = false;
};

void eachLine(const std::string& text, const std::function<void(const std::string&)>& line) {
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    line(text.substr(begin, end - begin));
    begin = end + 1;
  }
}

std::vector<Include> includes(const std::string& text) {
  static const std::regex regex(R"(^\s*#\s*(include|import)\s*([<"])([^>"]+)[>"])");
  std::vector<Include> found;
  eachLine(text, [&](const std::string& line) {
    std::smatch match;
    if (std::regex_search(line, match, regex)) found.push_back({match[3], match[2] == "\""});
  });
  return found;
}

std::string withoutSuffix(const std::string& path) {
  return path.substr(0, path.rfind('.'));
}

}  // namespace

std::vector<std::string> includeBreaches(const SourceTree& tree) {
  std::vector<std::string> breaches;
  for (const auto& [path, text] : tree) {
    const std::string from = room(path);
    for (const Include& include : includes(text)) {
      const std::string sentence = path + " includes " + include.name;
      if (include.isQuoted) {
        if (!tree.contains(include.name)) {
          breaches.push_back(sentence + ", which is no file of the tree");
        } else if (!mayInclude(path, include.name)) {
          breaches.push_back(sentence);
        }
      } else if ((isProgram(from) || from == "support" || from == "platform") &&
                 std::regex_match(include.name, systemHeader())) {
        breaches.push_back(sentence);
      }
    }
    if (isBackend(from) || !backendOfAdapter(path).empty()) continue;
    eachLine(text, [&, &file = path](const std::string& line) {
      if (std::regex_search(line, systemCondition())) {
        breaches.push_back(file + " asks for the operating system: " + line);
      }
    });
  }
  return breaches;
}

std::vector<std::string> includeCycles(const SourceTree& tree) {
  std::map<std::string, std::set<std::string>> edges;
  for (const auto& [path, text] : tree) {
    for (const Include& include : includes(text)) {
      const std::string from = withoutSuffix(path);
      const std::string to = withoutSuffix(include.name);
      if (include.isQuoted && from != to) edges[from].insert(to);
    }
  }
  std::vector<std::string> cycles;
  std::set<std::string> done;
  std::vector<std::string> trail;
  const std::function<void(const std::string&)> visit = [&](const std::string& node) {
    if (const auto start = std::ranges::find(trail, node); start != trail.end()) {
      std::string cycle;
      for (auto step = start; step != trail.end(); ++step) cycle += *step + " -> ";
      cycles.push_back(cycle + node);
      return;
    }
    if (done.contains(node)) return;
    trail.push_back(node);
    for (const std::string& next : edges[node]) visit(next);
    trail.pop_back();
    done.insert(node);
  };
  for (const auto& [path, text] : tree) visit(withoutSuffix(path));
  return cycles;
}

}  // namespace talmo::test
