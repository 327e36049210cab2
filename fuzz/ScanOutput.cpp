// What a scan script wrote, which holds whatever addresses and titles the web put there.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "support/UnicodeText.h"
#include "web/WebPlayerRegistry.h"
#include "web/WebTabScanner.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  for (const std::string& output : {bytes, talmo::UnicodeText::repaired(bytes)}) {
    const std::vector<talmo::WebTabMatch> matches =
        talmo::WebTabScanner::parse(output, "com.google.Chrome", "Chrome");
    for (const talmo::WebTabMatch& match : matches) {
      const talmo::WebPlayerTarget* const target =
          talmo::WebPlayerRegistry::targetWithID(match.targetID);
      require(target != nullptr && target->isPlayerPage(match.url));
      require(match.url.find_first_of("\t\n") == std::string::npos);
      require(match.title.find('\n') == std::string::npos);
      require(output.find(match.url) != std::string::npos);
      require(output.find(match.title) != std::string::npos);
    }
    // The rest of the way that titles and owners go.
    const std::string title = matches.empty() ? output : matches.back().title;
    const auto best = talmo::WebTabScanner::bestPerTarget(matches, "com.google.Chrome", {}, title);
    require(best.empty() == matches.empty());
  }
  return 0;
}
