#include "tests/support/WithoutPrivileges.h"

#include <unistd.h>

#include <gtest/gtest.h>

namespace talmo::test {
namespace {

// The id that Linux systems give to nobody.
constexpr uid_t nobody = 65534;

void require(int result) {
  if (result != 0) throw std::system_error(errno, std::generic_category());
}

}  // namespace

WithoutPrivileges::WithoutPrivileges(const std::filesystem::path& folder) {
  if (::geteuid() != 0) return;
  require(::lchown(folder.c_str(), nobody, nobody));
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    require(::lchown(entry.path().c_str(), nobody, nobody));
  }
  require(::seteuid(nobody));
}

WithoutPrivileges::~WithoutPrivileges() {
  // No test may go on without them.
  if (::getuid() == 0 && ::seteuid(0) != 0) std::abort();
}

}  // namespace talmo::test
