#pragma once

#include <filesystem>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace talmo::test {

/// Talmo as it was built, but with another osascript, a shell script of the test's own.
class TalmoCopy {
 public:
  /// `script` follows the first line; in it, "$osascript" is the one that was built, and "$folder"
  /// a folder for whatever it has to remember.
  explicit TalmoCopy(const std::string& script);

  /// Where the bundle is.
  const std::filesystem::path& folder() const { return folder_.path(); }
  std::filesystem::path program() const { return folder() / "talmo"; }

 private:
  TemporaryFolder folder_;
};

}  // namespace talmo::test
