#pragma once

#include <string_view>

namespace talmo {

/// Whether `identifier` is `application`'s, or that of a helper process of it, which has the
/// application's with a dot and more behind it. Nothing belongs to an empty identifier.
constexpr bool belongsToApplication(std::string_view identifier, std::string_view application) {
  if (application.empty() || !identifier.starts_with(application)) return false;
  const std::string_view rest = identifier.substr(application.size());
  return rest.empty() || rest.front() == '.';
}

}  // namespace talmo
