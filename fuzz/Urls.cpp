// The tests that decide whose page an address is.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "web/WebPlayerRegistry.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string url(data, data + size);
  const talmo::WebPlayerTarget* const owner = talmo::WebPlayerRegistry::targetForURL(url);
  for (const talmo::WebPlayerTarget& target : talmo::WebPlayerRegistry::all()) {
    const bool matches = target.matches(url);
    require(!target.isPlayerPage(url) || matches);
    require(!matches || owner != nullptr);
  }
  if (owner == nullptr) return 0;
  require(owner->matches(url));
  // No control character gets into a script by way of an address.
  require(url.find('\n') == std::string::npos && url.find('\0') == std::string::npos);
  return 0;
}
