#include "tests/support/TemporaryFolder.h"

#include <cerrno>
#include <stdlib.h>
#include <string>
#include <system_error>

namespace talmo::test {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "talmo-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), "mkdtemp");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace talmo::test
