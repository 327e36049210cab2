#pragma once

#include <filesystem>

namespace talmo::test {

/// Takes the administrator's powers away for its scope, in the whole process: they would make every
/// file accessible. Nothing changes where the test has none.
class WithoutPrivileges {
 public:
  /// `folder` and all that is in it belong to the person without powers then, and stay theirs.
  /// Throws when that is impossible.
  explicit WithoutPrivileges(const std::filesystem::path& folder);
  ~WithoutPrivileges();
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
};

}  // namespace talmo::test
