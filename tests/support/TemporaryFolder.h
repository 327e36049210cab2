#pragma once

#include <filesystem>

namespace talmo::test {

/// A folder of the test's own, removed with all that is in it when the object goes.
class TemporaryFolder {
 public:
  /// Throws when there cannot be one.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace talmo::test
