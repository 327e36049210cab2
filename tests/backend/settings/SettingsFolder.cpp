#include "tests/backend/settings/SettingsFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace talmo::test {

void SettingsFolder::write(const std::filesystem::path& file, const std::string& content) {
  std::ofstream(file, std::ios::binary) << content;
}

std::string SettingsFolder::read(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> SettingsFolder::damaged() const {
  std::vector<std::filesystem::path> found;
  for (const std::string& name : names()) {
    if (name.starts_with("settings.json.damaged-")) found.push_back(path() / name);
  }
  return found;
}

std::vector<std::string> SettingsFolder::names() const {
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(path())) {
    found.push_back(entry.path().filename());
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace talmo::test
