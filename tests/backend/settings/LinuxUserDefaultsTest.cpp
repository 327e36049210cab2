#include <chrono>
#include <csignal>
#include <random>
#include <stdlib.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "platform/linux/settings/LinuxUserDefaults.h"
#include "tests/backend/settings/SettingsFolder.h"
#include "tests/support/TestPlatform.h"
#include "tests/support/TestProcess.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/WithoutPrivileges.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

mode_t modeOf(const std::filesystem::path& path) {
  struct stat status{};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777U;
}

ino_t inodeOf(const std::filesystem::path& path) {
  struct stat status{};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_ino;
}

/// Sets or removes an environment variable for its scope.
class WithEnvironment {
 public:
  WithEnvironment(std::string name, const std::optional<std::string>& value)
      : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  ~WithEnvironment() { set(before_); }
  WithEnvironment(const WithEnvironment&) = delete;
  WithEnvironment& operator=(const WithEnvironment&) = delete;

 private:
  void set(const std::optional<std::string>& value) const {
    if (value) {
      ::setenv(name_.c_str(), value->c_str(), 1);
    } else {
      ::unsetenv(name_.c_str());
    }
  }

  const std::string name_;
  std::optional<std::string> before_;
};

class LinuxUserDefaultsTest : public testing::Test {
 protected:
  std::vector<std::string> errors() { return platform_.log().messages(LogLevel::error); }

  TestPlatform platform_;
  SettingsFolder folder_;
};

TEST_F(LinuxUserDefaultsTest, StandardFileFollowsTheBaseDirectoryRules) {
  const WithEnvironment home("HOME", "/home/somebody");
  {
    const WithEnvironment config("XDG_CONFIG_HOME", "/elsewhere/config");
    EXPECT_EQ(LinuxUserDefaults::standardFile(), "/elsewhere/config/talmo/settings.json");
  }
  for (const auto& unusable : {std::optional<std::string>(), std::optional<std::string>(""),
                               std::optional<std::string>("relative/config")}) {
    const WithEnvironment config("XDG_CONFIG_HOME", unusable);
    const std::filesystem::path file = LinuxUserDefaults::standardFile();
    EXPECT_TRUE(file.is_absolute());
    EXPECT_THAT(file.string(), testing::EndsWith("/.config/talmo/settings.json"));
  }
}

TEST_F(LinuxUserDefaultsTest, NothingIsWrittenBeforeTheFirstChange) {
  LinuxUserDefaults defaults(folder_.path() / "talmo" / "settings.json");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), std::nullopt);
  defaults.setString("selectedTargetAppID", std::nullopt);
  EXPECT_THAT(folder_.names(), IsEmpty());
  EXPECT_THAT(platform_.log().lines(), IsEmpty());
}

TEST_F(LinuxUserDefaultsTest, FileAndFoldersAreTheOwnersAlone) {
  const std::filesystem::path file = folder_.path() / "config" / "talmo" / "settings.json";
  LinuxUserDefaults defaults(file);
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(modeOf(file), 0600U);
  EXPECT_EQ(modeOf(file.parent_path()), 0700U);
  EXPECT_EQ(modeOf(file.parent_path().parent_path()), 0700U);
}

TEST_F(LinuxUserDefaultsTest, FileIsAJsonObject) {
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  defaults.setBoolean("hasCompletedOnboarding", true);
  EXPECT_EQ(folder_.read(),
            "{\n  \"selectedTargetAppID\": \"vlc\",\n  \"hasCompletedOnboarding\": true\n}\n");
}

TEST_F(LinuxUserDefaultsTest, FileIsReadOnce) {
  folder_.write(R"({"selectedTargetAppID": "vlc"})");
  const LinuxUserDefaults defaults(folder_.file());
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  folder_.write(R"({"selectedTargetAppID": "spotify"})");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
}

TEST_F(LinuxUserDefaultsTest, UnknownKeysAndOtherTypesAreKeptInTheirOrder) {
  folder_.write(R"({"z": {"deep": [1, 2.5, null]}, "selectedTargetAppID": 7, "a": [true]})");
  LinuxUserDefaults defaults(folder_.file());
  EXPECT_EQ(defaults.string("selectedTargetAppID"), std::nullopt);
  EXPECT_FALSE(defaults.boolean("a"));
  defaults.setBoolean("hasCompletedOnboarding", true);
  EXPECT_EQ(nlohmann::ordered_json::parse(folder_.read()).dump(),
            R"({"z":{"deep":[1,2.5,null]},"selectedTargetAppID":7,"a":[true],)"
            R"("hasCompletedOnboarding":true})");
}

TEST_F(LinuxUserDefaultsTest, LastOfTwoEqualKeysCounts) {
  folder_.write(R"({"key": "first", "key": "second"})");
  const LinuxUserDefaults defaults(folder_.file());
  EXPECT_EQ(defaults.string("key"), "second");
  EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LinuxUserDefaultsTest, SameValueAgainIsNotWritten) {
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  defaults.setBoolean("flag", false);
  const ino_t before = inodeOf(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  defaults.setBoolean("flag", false);
  defaults.setString("absent", std::nullopt);
  EXPECT_EQ(inodeOf(folder_.file()), before);
  // Every write makes a new file.
  defaults.setBoolean("flag", true);
  EXPECT_NE(inodeOf(folder_.file()), before);
}

TEST_F(LinuxUserDefaultsTest, BytesThatAreNoTextReadBackAndDoNotSpoilTheFile) {
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("bytes", "a\xff");
  defaults.setString("text", "kept");
  EXPECT_EQ(defaults.string("bytes"), "a\xff");
  const LinuxUserDefaults next(folder_.file());
  EXPECT_EQ(next.string("bytes"), "a\ufffd");
  EXPECT_EQ(next.string("text"), "kept");
}

/// A name and the content of a settings file that cannot be used.
struct Damage {
  const char* name;
  std::string content;
};

class DamagedSettings : public LinuxUserDefaultsTest, public testing::WithParamInterface<Damage> {};

TEST_P(DamagedSettings, AreKeptAsideWithOneLogLineAndTheDefaultsAreUsed) {
  folder_.write(GetParam().content);
  LinuxUserDefaults defaults(folder_.file());
  EXPECT_EQ(defaults.string("selectedTargetAppID"), std::nullopt);
  EXPECT_FALSE(defaults.boolean("hasCompletedOnboarding"));

  const auto aside = folder_.damaged();
  ASSERT_THAT(aside, SizeIs(1));
  EXPECT_THAT(aside[0].filename().string(),
              testing::MatchesRegex("settings\\.json\\.damaged-[0-9]{8}T[0-9]{6}Z"));
  EXPECT_EQ(SettingsFolder::read(aside[0]), GetParam().content);
  EXPECT_THAT(errors(), ElementsAre(AllOf(HasSubstr(folder_.file().string() + ":"),
                                          HasSubstr(aside[0].string()))));

  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(LinuxUserDefaults(folder_.file()).string("selectedTargetAppID"), "vlc");
  EXPECT_THAT(folder_.damaged(), SizeIs(1));
  EXPECT_THAT(errors(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(
    , DamagedSettings,
    testing::Values(Damage{"Empty", ""}, Damage{"NoJson", "selectedTargetAppID = vlc\n"},
                    Damage{"CutShort", R"({"selectedTargetAppID": "vl)"},
                    Damage{"MoreBehindTheObject", R"({"selectedTargetAppID": "vlc"} {})"},
                    Damage{"Array", R"(["selectedTargetAppID", "vlc"])"},
                    Damage{"String", R"("vlc")"}, Damage{"Null", "null"},
                    Damage{"Binary", std::string("\x7f"
                                                 "ELF\0\0\x01\xff\xfe",
                                                 9)},
                    Damage{"NoUtf8", "{\"selectedTargetAppID\": \"vl\xff\"}"},
                    Damage{"Zeros", std::string(4096, '\0')},
                    Damage{"TooDeep", R"({"a": )" + std::string(200'000, '[') +
                                          std::string(200'000, ']') + "}"},
                    Damage{"TooLarge", R"({"a": ")" + std::string(1U << 20U, 'x') + R"("})"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(LinuxUserDefaultsTest, FileOfExactlyTheLimitIsRead) {
  const std::string frame = R"({"a": ""})";
  const std::string value(LinuxUserDefaults::longestFile - frame.size(), 'x');
  folder_.write(R"({"a": ")" + value + R"("})");
  EXPECT_EQ(LinuxUserDefaults(folder_.file()).string("a"), value);
  EXPECT_THAT(folder_.damaged(), IsEmpty());
}

TEST_F(LinuxUserDefaultsTest, EarlierDamagedFilesAreNotReplaced) {
  const std::vector<std::string> contents = {"first", "second", "third", "fourth"};
  for (const std::string& content : contents) {
    folder_.write(content);
    EXPECT_FALSE(LinuxUserDefaults(folder_.file()).boolean("key"));
  }
  std::vector<std::string> kept;
  for (const auto& file : folder_.damaged()) kept.push_back(SettingsFolder::read(file));
  EXPECT_THAT(kept, testing::UnorderedElementsAreArray(contents));
}

TEST_F(LinuxUserDefaultsTest, UnreadableFileIsKeptAside) {
  folder_.write(R"({"selectedTargetAppID": "vlc"})");
  ASSERT_EQ(::chmod(folder_.file().c_str(), 0), 0);
  {
    const WithoutPrivileges scope(folder_.path());
    LinuxUserDefaults defaults(folder_.file());
    EXPECT_EQ(defaults.string("selectedTargetAppID"), std::nullopt);
    defaults.setString("selectedTargetAppID", "spotify");
    EXPECT_EQ(LinuxUserDefaults(folder_.file()).string("selectedTargetAppID"), "spotify");
  }
  ASSERT_THAT(folder_.damaged(), SizeIs(1));
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("Permission denied")));
}

TEST_F(LinuxUserDefaultsTest, FolderInPlaceOfTheFileIsKeptAside) {
  std::filesystem::create_directory(folder_.file());
  SettingsFolder::write(folder_.file() / "inside", "kept");
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  ASSERT_THAT(folder_.damaged(), SizeIs(1));
  EXPECT_EQ(SettingsFolder::read(folder_.damaged()[0] / "inside"), "kept");
  EXPECT_EQ(LinuxUserDefaults(folder_.file()).string("selectedTargetAppID"), "vlc");
}

TEST_F(LinuxUserDefaultsTest, DamagedFileThatCannotBePutAsideIsNeverOverwritten) {
  folder_.write("damaged");
  {
    const WithoutPrivileges scope(folder_.path());
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0500), 0);
    LinuxUserDefaults defaults(folder_.file());
    EXPECT_EQ(defaults.string("selectedTargetAppID"), std::nullopt);
    // Even if it becomes possible later on: the person is to find the file as it was.
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0700), 0);
    defaults.setString("selectedTargetAppID", "vlc");
    EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  }
  EXPECT_THAT(folder_.names(), ElementsAre("settings.json"));
  EXPECT_EQ(folder_.read(), "damaged");
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("storing nothing")));
}

TEST_F(LinuxUserDefaultsTest, FolderBehindALinkIsLeftAlone) {
  const std::filesystem::path target = folder_.path() / "documents";
  std::filesystem::create_directory(target);
  std::filesystem::create_symlink(target, folder_.file());
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  EXPECT_THAT(folder_.names(), ElementsAre("documents", "settings.json"));
  EXPECT_TRUE(std::filesystem::is_directory(target));
  EXPECT_EQ(std::filesystem::read_symlink(folder_.file()), target);
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("storing nothing")));
}

TEST_F(LinuxUserDefaultsTest, DeviceBehindALinkIsReadAsNothingAndLeftAlone) {
  std::filesystem::create_symlink("/dev/null", folder_.file());
  // An administrator could do harm to the device.
  const WithoutPrivileges scope(folder_.path());
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(std::filesystem::read_symlink(folder_.file()), "/dev/null");
  EXPECT_THAT(folder_.names(), ElementsAre("settings.json"));
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("storing nothing")));
}

TEST_F(LinuxUserDefaultsTest, WhatTookTheFilesPlaceMeanwhileIsNotReplaced) {
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  std::filesystem::remove(folder_.file());
  ASSERT_EQ(::mkfifo((folder_.path() / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("pipe", folder_.file());
  defaults.setString("selectedTargetAppID", "spotify");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "spotify");
  EXPECT_TRUE(std::filesystem::is_fifo(folder_.path() / "pipe"));
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("not a regular file")));
}

TEST_F(LinuxUserDefaultsTest, PipeInPlaceOfTheFileHoldsNobodyUp) {
  ASSERT_EQ(::mkfifo(folder_.file().c_str(), 0600), 0);
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  EXPECT_TRUE(std::filesystem::is_fifo(folder_.file()));
  EXPECT_THAT(errors(), SizeIs(1));
}

TEST_F(LinuxUserDefaultsTest, LinkToItselfIsLeftAlone) {
  std::filesystem::create_symlink("settings.json", folder_.file());
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(std::filesystem::read_symlink(folder_.file()), "settings.json");
  EXPECT_THAT(errors(), SizeIs(1));
}

TEST_F(LinuxUserDefaultsTest, LinkedFileIsWrittenWhereItIs) {
  std::filesystem::create_directory(folder_.path() / "dotfiles");
  const std::filesystem::path target = folder_.path() / "dotfiles" / "talmo.json";
  SettingsFolder::write(target, R"({"selectedTargetAppID": "vlc"})");
  // Two links, relative ones.
  std::filesystem::create_symlink("talmo.json", folder_.path() / "dotfiles" / "link.json");
  std::filesystem::create_symlink("dotfiles/link.json", folder_.file());
  LinuxUserDefaults defaults(folder_.file());
  EXPECT_EQ(defaults.string("selectedTargetAppID"), "vlc");
  defaults.setString("selectedTargetAppID", "spotify");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.file()));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.path() / "dotfiles" / "link.json"));
  EXPECT_THAT(SettingsFolder::read(target), HasSubstr("spotify"));
}

TEST_F(LinuxUserDefaultsTest, LinkToAFileThatIsNotThereYetIsFollowed) {
  std::filesystem::create_symlink("talmo.json", folder_.file());
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.file()));
  EXPECT_THAT(SettingsFolder::read(folder_.path() / "talmo.json"), HasSubstr("vlc"));
  EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(LinuxUserDefaultsTest, FailingWriteIsOneLogLineAndTheValueReadsBack) {
  folder_.write(R"({"selectedTargetAppID": "vlc"})");
  {
    const WithoutPrivileges scope(folder_.path());
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0500), 0);
    LinuxUserDefaults defaults(folder_.file());
    defaults.setString("selectedTargetAppID", "spotify");
    EXPECT_EQ(defaults.string("selectedTargetAppID"), "spotify");
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("cannot store the settings")));
    EXPECT_THAT(folder_.read(), HasSubstr("vlc"));
    // Once it is possible again the same value is worth a write.
    ASSERT_EQ(::chmod(folder_.path().c_str(), 0700), 0);
    defaults.setString("selectedTargetAppID", "spotify");
  }
  EXPECT_THAT(folder_.read(), HasSubstr("spotify"));
  EXPECT_THAT(folder_.names(), ElementsAre("settings.json"));
  EXPECT_THAT(errors(), SizeIs(1));
}

TEST_F(LinuxUserDefaultsTest, FolderThatCannotBeMadeIsOneLogLine) {
  SettingsFolder::write(folder_.path() / "talmo", "a file in the way");
  LinuxUserDefaults defaults(folder_.path() / "talmo" / "settings.json");
  EXPECT_FALSE(defaults.boolean("flag"));
  defaults.setBoolean("flag", true);
  EXPECT_TRUE(defaults.boolean("flag"));
  EXPECT_EQ(SettingsFolder::read(folder_.path() / "talmo"), "a file in the way");
  EXPECT_THAT(errors(), SizeIs(1));
}

TEST_F(LinuxUserDefaultsTest, FullDiskLeavesTheOldFileWhole) {
  LinuxUserDefaults defaults(folder_.file());
  defaults.setString("selectedTargetAppID", "vlc");
  // A limit on the size of files makes writing fail in the middle, as a full disk does.
  const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small{.rlim_cur = 1000, .rlim_max = before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  defaults.setString("long", std::string(10'000, 'x'));
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, signalBefore);

  EXPECT_EQ(defaults.string("long"), std::string(10'000, 'x'));
  EXPECT_THAT(errors(), ElementsAre(HasSubstr("cannot store the settings")));
  EXPECT_THAT(folder_.names(), ElementsAre("settings.json"));
  const LinuxUserDefaults next(folder_.file());
  EXPECT_EQ(next.string("selectedTargetAppID"), "vlc");
  EXPECT_EQ(next.string("long"), std::nullopt);
}

TEST_F(LinuxUserDefaultsTest, SeveralThreadsMaySetAtTheSameTime) {
  constexpr int threadCount = 4;
  constexpr int rounds = 15;
  LinuxUserDefaults defaults(folder_.file());
  std::vector<std::thread> threads;
  for (int number = 0; number < threadCount; ++number) {
    threads.emplace_back([&defaults, number] {
      const std::string key = "key" + std::to_string(number);
      for (int round = 0; round < rounds; ++round) {
        defaults.setString(key, std::to_string(round));
        EXPECT_EQ(defaults.string(key), std::to_string(round));
        defaults.setBoolean("shared", round % 2 == 0);
        defaults.boolean("shared");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  const LinuxUserDefaults next(folder_.file());
  for (int number = 0; number < threadCount; ++number) {
    EXPECT_EQ(next.string("key" + std::to_string(number)), std::to_string(rounds - 1));
  }
  EXPECT_TRUE(next.boolean("shared"));
  EXPECT_THAT(folder_.names(), ElementsAre("settings.json"));
}

TEST_F(LinuxUserDefaultsTest, KilledWriterLeavesAWholeFile) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> milliseconds(0, 40);
  for (int round = 0; round < 15; ++round) {
    std::filesystem::remove(folder_.file());
    TestProcess writer({.arguments = {TALMO_SETTINGS_WRITER, folder_.file().string()}});
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(folder_.file()); }))
        << writer.output();
    // A moment that no one chose, somewhere in the middle of its work.
    waitUntil([] { return false; }, std::chrono::milliseconds(milliseconds(random)));
    ASSERT_TRUE(writer.isRunning()) << writer.output();
    writer.signal(SIGKILL);
    ASSERT_EQ(writer.waitForExit(10s), -SIGKILL);

    const std::string content = folder_.read();
    const auto json = nlohmann::json::parse(content, nullptr, false);
    ASSERT_TRUE(json.is_object()) << content.substr(0, 200);
    const std::string text = json.at("text");
    EXPECT_EQ(text, std::string(text.size(), text[0]));
    EXPECT_FALSE(LinuxUserDefaults(folder_.file()).boolean("absent"));
  }
  EXPECT_THAT(folder_.damaged(), IsEmpty());
  EXPECT_THAT(errors(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
