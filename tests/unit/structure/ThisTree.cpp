#include "tests/unit/structure/ThisTree.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace talmo::test {

SourceTree thisTree() {
  const std::filesystem::path root(TALMO_SOURCE_DIR);
  SourceTree tree;
  for (const char* folder :
       {"app", "keys", "players", "web", "nowplaying", "permissions", "panel", "onboarding",
        "support", "platform", "adapter", "tests", "bench", "fuzz"}) {
    if (!std::filesystem::exists(root / folder)) continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp" && extension != ".mm") continue;
      std::ifstream file(entry.path());
      tree[entry.path().lexically_relative(root).generic_string()] = {
          std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
  }
  return tree;
}

}  // namespace talmo::test
