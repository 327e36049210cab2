#include "tests/desktop/show/ShowReport.h"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <unistd.h>

namespace talmo::test {
namespace {

// Where the verdicts stand, and where lines end.
constexpr std::size_t verdictColumn = 90;

constexpr const char* margin = "   ";

// ECMA-48, "Select Graphic Rendition".
constexpr const char* bold = "1";
constexpr const char* red = "1;31";
constexpr const char* green = "32";

}  // namespace

ShowReport::ShowReport() : hasColours_(::isatty(STDOUT_FILENO) == 1) {}

void ShowReport::chapter(const std::string& title) {
  ++chapters_;
  std::cout << '\n' << painted(bold, std::to_string(chapters_) + ". " + title) << std::endl;
}

void ShowReport::tell(const std::string& text) const {
  std::istringstream words(text);
  std::string line = margin;
  for (std::string word; words >> word;) {
    if (line.size() + word.size() > verdictColumn) {
      std::cout << line << '\n';
      line = margin;
    }
    line += (line == margin ? "" : " ") + word;
  }
  std::cout << line << std::endl;
}

bool ShowReport::check(const std::string& seen, bool good) {
  const std::string line = std::string(margin) + "  " + seen + ' ';
  const std::size_t dots = std::max(line.size(), verdictColumn) - line.size();
  std::cout << line << std::string(dots, '.') << ' '
            << (good ? painted(green, "yes") : painted(red, "NO")) << std::endl;
  ++(good ? good_ : bad_);
  return good;
}

void ShowReport::quote(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::cout << margin << "    | " << line << '\n';
  }
  std::cout.flush();
}

void ShowReport::sum() const {
  std::cout << '\n';
  if (isGood()) {
    std::cout << painted(green, "All " + std::to_string(good_) + " things were as they should be.");
  } else {
    std::cout << painted(red, std::to_string(bad_) + " of " + std::to_string(good_ + bad_) +
                                  " things were not as they should be.");
  }
  std::cout << std::endl;
}

std::string ShowReport::painted(const char* colour, const std::string& text) const {
  if (!hasColours_) return text;
  return std::string("\033[") + colour + 'm' + text + "\033[0m";
}

}  // namespace talmo::test
