#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "platform/linux/LinuxBundle.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

TEST(LinuxBundle, FindsWhatIsInItsFolder) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.path() / "resources");
  std::filesystem::create_directories(folder.path() / "frameworks");
  std::ofstream(folder.path() / "resources" / "script.pl") << "1;";
  const LinuxBundle bundle(folder.path());
  EXPECT_EQ(bundle.resourcePath("script", "pl"), (folder.path() / "resources/script.pl").string());
  EXPECT_EQ(bundle.resourcePath("script", "py"), std::nullopt);
  EXPECT_EQ(bundle.privateFrameworksPath(), (folder.path() / "frameworks").string());
  EXPECT_TRUE(bundle.fileExists((folder.path() / "resources").string()));
  EXPECT_TRUE(bundle.fileExists((folder.path() / "resources/script.pl").string()));
  EXPECT_FALSE(bundle.fileExists((folder.path() / "resources/script.py").string()));
}

TEST(LinuxBundle, HasNoInformationDictionary) {
  const TemporaryFolder folder;
  std::ofstream(folder.path() / "Info.plist") << "<plist/>";
  EXPECT_EQ(LinuxBundle(folder.path()).objectForInfoDictionaryKey("SUFeedURL"), std::nullopt);
}

TEST(LinuxBundle, HasNoFrameworksWithoutTheirFolder) {
  const TemporaryFolder folder;
  EXPECT_EQ(LinuxBundle(folder.path()).privateFrameworksPath(), std::nullopt);
}

TEST(LinuxBundle, IsBesideTheRunningProgramAtFirst) {
  EXPECT_TRUE(std::filesystem::exists(LinuxBundle::folderOfTheProgram() / "backend_processes"));
}

TEST(LinuxBundle, IsWhereTheRunningProgramIsAndHasNoIdentifier) {
  const TemporaryFolder folder;
  const LinuxBundle bundle(folder.path());
  EXPECT_EQ(bundle.url(),
            "file://" + (LinuxBundle::folderOfTheProgram() / "backend_processes").string());
  EXPECT_EQ(bundle.identifier(), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
