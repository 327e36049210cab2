#include "tests/backend/applications/PrivateData.h"

#include <array>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <stdlib.h>

#include <gtest/gtest.h>

#include "platform/linux/applications/DesktopEntry.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

constexpr std::array<const char*, 4> folders{"data", "config", "state", "scratch"};

class Environment : public testing::Environment {
 public:
  void SetUp() override {
    folder() = std::make_unique<TemporaryFolder>();
    PrivateData::clear();
    const std::filesystem::path& root = path();
    ::setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
    ::setenv("XDG_DATA_DIRS", (root / "system").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
    ::setenv("XDG_STATE_HOME", (root / "state").c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", (root / "system").c_str(), 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (root / "no-bus").string()).c_str(), 1);
    ::unsetenv("DISPLAY");
    for (const char* language : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"}) ::unsetenv(language);
    ::setenv("LANG", "C.UTF-8", 1);
  }
  void TearDown() override { folder().reset(); }

  static const std::filesystem::path& path() { return folder()->path(); }

 private:
  static std::unique_ptr<TemporaryFolder>& folder() {
    static std::unique_ptr<TemporaryFolder> made;
    return made;
  }
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(std::make_unique<Environment>().release());

std::filesystem::path entryFile(const std::string& id) {
  return PrivateData::dataHome() / "applications" / (id + ".desktop");
}

}  // namespace

std::filesystem::path PrivateData::dataHome() {
  return Environment::path() / "data";
}

std::filesystem::path PrivateData::configHome() {
  return Environment::path() / "config";
}

std::filesystem::path PrivateData::stateHome() {
  return Environment::path() / "state";
}

std::filesystem::path PrivateData::scratch() {
  return Environment::path() / "scratch";
}

void PrivateData::clear() {
  for (const char* name : folders) {
    const std::filesystem::path folder = Environment::path() / name;
    std::filesystem::create_directory(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      // GIO goes on watching this one.
      if (entry.path().filename() == "applications") {
        for (const auto& file : std::filesystem::directory_iterator(entry)) {
          std::filesystem::remove_all(file);
        }
      } else {
        std::filesystem::remove_all(entry);
      }
    }
  }
  std::filesystem::create_directory(dataHome() / "applications");
}

void PrivateData::install(const std::string& id, const std::string& lines) {
  const std::filesystem::path file = entryFile(id);
  const std::filesystem::path draft = scratch() / "entry.desktop";
  std::ofstream(draft) << "[Desktop Entry]\nType=Application\n" << lines;
  std::filesystem::rename(draft, file);
  const bool isThere = waitUntil([&] {
    const std::optional<DesktopEntry> entry = DesktopEntry::withID(id);
    return entry && entry->url() == "file://" + file.string();
  });
  if (!isThere) throw std::runtime_error("GIO does not see " + file.string());
}

void PrivateData::uninstall(const std::string& id) {
  std::filesystem::remove(entryFile(id));
}

std::string PrivateData::quoted(const std::string& argument) {
  std::string result = "\"";
  for (const char letter : argument) {
    // One backslash for the argument's quotes, written as two in a value.
    if (letter == '"' || letter == '`' || letter == '$') result += R"(\\)";
    if (letter == '\\') result += R"(\\\)";
    if (letter == '%') result += '%';
    result += letter;
  }
  return result + '"';
}

}  // namespace talmo::test
