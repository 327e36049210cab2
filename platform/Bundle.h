#pragma once

#include <optional>
#include <string>

namespace talmo {

/// The files that the program is delivered with, and what it says of itself. Any thread; what is
/// not there is absent.
class Bundle {
 public:
  virtual ~Bundle() = default;

  /// Where the program itself is, as a URL that `Workspace::openNewInstance` takes.
  virtual std::string url() const = 0;

  /// The program's bundle identifier, on a system whose bundles have one.
  virtual std::optional<std::string> identifier() const = 0;

  /// The absolute path of the resource of that name and extension (without the dot).
  virtual std::optional<std::string> resourcePath(const std::string& name,
                                                  const std::string& extension) const = 0;

  /// The absolute path of the folder of the frameworks that belong to the program alone.
  virtual std::optional<std::string> privateFrameworksPath() const = 0;

  /// The text under a key of the bundle's information dictionary.
  virtual std::optional<std::string> objectForInfoDictionaryKey(const std::string& key) const = 0;

  /// Whether there is a file or folder of that path.
  virtual bool fileExists(const std::string& path) const = 0;
};

}  // namespace talmo
