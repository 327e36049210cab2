#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>

#include "platform/linux/applications/OpenedApplications.h"
#include "tests/backend/applications/LinuxWorkspaceTest.h"
#include "tests/backend/applications/RecentFile.h"
#include "tests/backend/applications/RecordedStart.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* vlc = "org.videolan.vlc";
constexpr const char* rhythmbox = "org.gnome.Rhythmbox3";

constexpr Date early(1'600'000'000s);
constexpr Date middle(1'700'000'000s);
constexpr Date late(1'700'000'500s);

class LastUseTest : public LinuxWorkspaceTest {
 protected:
  LastUseTest() { PrivateData::install("vlc", "Name=VLC media player\nExec=true\n"); }

  std::optional<Date> lastUse(const std::string& bundleID = vlc) {
    return workspace().lastUsedDate(workspace().urlForApplication(bundleID).value());
  }

  static std::filesystem::path recentFiles() {
    return PrivateData::dataHome() / "recently-used.xbel";
  }
  static std::filesystem::path shellRecord() {
    return PrivateData::dataHome() / "gnome-shell" / "application_state";
  }

  /// Writes GNOME Shell's record with that inside of it.
  static void writeShellRecord(const std::string& contexts) {
    std::filesystem::create_directories(shellRecord().parent_path());
    std::ofstream(shellRecord()) << "<?xml version=\"1.0\"?>\n<application-state>\n"
                                 << contexts << "</application-state>\n";
  }
  static std::string seen(const std::string& id, const std::string& when) {
    return "    <application id=\"" + id +
           "\" open-window-count=\"0\" score=\"12.5\" last-seen=\"" + when + "\"/>\n";
  }
  static std::string context(const std::string& applications) {
    return "  <context id=\"\">\n" + applications + "  </context>\n";
  }
};

TEST_F(LastUseTest, AFileUnderTheApplicationsNameCounts) {
  addToRecentFiles({.url = "file:///a",
                    .applicationName = "VLC media player",
                    .command = "unquoted ' %u",
                    .when = middle});
  EXPECT_EQ(lastUse(), middle);
}

TEST_F(LastUseTest, AFileUnderTheEntrysIdCounts) {
  addToRecentFiles(
      {.url = "file:///a", .applicationName = "vlc", .command = "anything %u", .when = middle});
  EXPECT_EQ(lastUse(), middle);
}

TEST_F(LastUseTest, AFileUnderTheApplicationsProgramCountsWhateverTheEntryStarts) {
  PrivateData::install("vlc", "Name=VLC\nExec=/usr/bin/env sandbox vlc %U\n");
  addToRecentFiles({.url = "file:///a",
                    .applicationName = "Another name",
                    .command = "'/opt/the players/vlc' %u",
                    .when = middle});
  EXPECT_EQ(lastUse(), middle);
}

TEST_F(LastUseTest, FilesOfOthersDoNotCount) {
  PrivateData::install("vlc", "Name=VLC\nExec=/usr/bin/env sandbox vlc %U\n");
  for (const char* command : {"env sandbox other %u", "/usr/bin/mpv %u", "vlc-helper %u", "' %u"}) {
    addToRecentFiles({.url = "file:///a",
                      .applicationName = std::string("Somebody with ") + command,
                      .command = command,
                      .when = middle});
  }
  EXPECT_EQ(lastUse(), std::nullopt);
}

TEST_F(LastUseTest, AnEntryThatNamesNoProgramIsNotTakenForAnother) {
  PrivateData::install(rhythmbox, "Name=Rhythmbox\nDBusActivatable=true\n");
  addToRecentFiles(
      {.url = "file:///a", .applicationName = "Somebody", .command = "' %u", .when = middle});
  EXPECT_EQ(lastUse(rhythmbox), std::nullopt);
}

TEST_F(LastUseTest, OfSeveralFilesTheLatestCounts) {
  int number = 0;
  for (const Date when : {middle, late, early}) {
    addToRecentFiles({.url = "file:///" + std::to_string(++number),
                      .applicationName = "VLC media player",
                      .command = "vlc %u",
                      .when = when});
  }
  EXPECT_EQ(lastUse(), late);
}

TEST_F(LastUseTest, ADateBeyondAllClocksIsNone) {
  // The last second that the list can hold, in the year 9999.
  constexpr const char* item = R"(<bookmark href="file:///a" added="2020-01-01T00:00:00Z"
      modified="2020-01-01T00:00:00Z" visited="2020-01-01T00:00:00Z"><info>
      <metadata owner="http://freedesktop.org"><bookmark:applications>
      <bookmark:application name="vlc" exec="vlc %u" modified="9999-12-31T23:59:59Z" count="1"/>
      </bookmark:applications></metadata></info></bookmark>)";
  std::ofstream(recentFiles()) << R"(<?xml version="1.0"?><xbel version="1.0" xmlns:bookmark=)"
                               << R"("http://www.freedesktop.org/standards/desktop-bookmarks">)"
                               << item << "</xbel>";
  EXPECT_EQ(lastUse(), std::nullopt);
  addToRecentFiles(
      {.url = "file:///b", .applicationName = "vlc", .command = "vlc %u", .when = early});
  EXPECT_EQ(lastUse(), early);
}

TEST_F(LastUseTest, TheTimeInFrontOfTheShellCounts) {
  writeShellRecord(context(seen("mpv.desktop", "1700000500") + seen("vlc.desktop", "1700000000") +
                           seen("org.vlc.desktop", "1700000500")));
  EXPECT_EQ(lastUse(), middle);
}

TEST_F(LastUseTest, AnApplicationInSeveralContextsWasLastInFrontInTheLatest) {
  writeShellRecord(context(seen("vlc.desktop", "1700000000")) +
                   context(seen("vlc.desktop", "1700000500")) +
                   context(seen("vlc.desktop", "1600000000")));
  EXPECT_EQ(lastUse(), late);
}

TEST_F(LastUseTest, ANumberThatIsNoTimeIsNone) {
  for (const char* number : {"", "soon", "-1", "1700000000x", "99999999999", "9223372036854775807",
                             "99999999999999999999", "1.7e9"}) {
    writeShellRecord(context(seen("vlc.desktop", number)));
    EXPECT_EQ(lastUse(), std::nullopt) << number;
  }
  writeShellRecord(context("<application id=\"vlc.desktop\"/><application/>"));
  EXPECT_EQ(lastUse(), std::nullopt);
}

TEST_F(LastUseTest, OfAllRecordsTheLatestDateCounts) {
  OpenedApplications(OpenedApplications::standardFile()).remember("vlc", middle);
  EXPECT_EQ(lastUse(), middle);
  writeShellRecord(context(seen("vlc.desktop", "1600000000")));
  EXPECT_EQ(lastUse(), middle);
  addToRecentFiles(
      {.url = "file:///a", .applicationName = "vlc", .command = "vlc %u", .when = late});
  EXPECT_EQ(lastUse(), late);
  writeShellRecord(context(seen("vlc.desktop", "1700000600")));
  EXPECT_EQ(lastUse(), Date(1'700'000'600s));
  OpenedApplications(OpenedApplications::standardFile()).remember("vlc", Date(1'700'000'700s));
  EXPECT_EQ(lastUse(), Date(1'700'000'700s));
}

TEST_F(LastUseTest, AnApplicationThatWasOpenedHereWasUsedThen) {
  const std::filesystem::path file = PrivateData::scratch() / "start.json";
  PrivateData::install("vlc", "Name=VLC\nExec=" + PrivateData::quoted(RecordedStart::program()) +
                                  " " + PrivateData::quoted(file) + "\n");
  PrivateData::install("mpv", "Name=mpv\nExec=true\n");
  const Date before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  workspace().openApplication(workspace().urlForApplication(vlc).value());
  const RecordedStart start(file);
  ASSERT_TRUE(waitUntil([&] { return lastUse().has_value(); }));
  EXPECT_GE(*lastUse(), before);
  EXPECT_LE(*lastUse(), std::chrono::system_clock::now());
  EXPECT_EQ(lastUse("io.mpv.Mpv"), std::nullopt);

  LinuxDispatch dispatch;
  const LinuxWorkspace next(dispatch);
  EXPECT_EQ(next.lastUsedDate(next.urlForApplication(vlc).value()), lastUse());
}

TEST_F(LastUseTest, AnApplicationThatCouldNotBeOpenedWasNotUsed) {
  PrivateData::install("vlc", "Name=VLC\nPath=/no/such/folder\nExec=true\n");
  workspace().openApplication(workspace().urlForApplication(vlc).value());
  ASSERT_TRUE(waitUntil([&] { return log().contains(" failed: "); }));
  EXPECT_EQ(lastUse(), std::nullopt);
}

/// A name and what stands in place of a record.
struct Damage {
  const char* name;
  std::string content;
};

class DamagedRecords : public LastUseTest, public testing::WithParamInterface<Damage> {};

TEST_P(DamagedRecords, AreNoneAndTheOthersCount) {
  std::filesystem::create_directories(shellRecord().parent_path());
  std::filesystem::create_directories(OpenedApplications::standardFile().parent_path());
  for (const auto& file : {recentFiles(), shellRecord(), OpenedApplications::standardFile()}) {
    std::ofstream(file, std::ios::binary) << GetParam().content;
  }
  EXPECT_EQ(lastUse(), std::nullopt);
  OpenedApplications(OpenedApplications::standardFile()).remember("vlc", early);
  EXPECT_EQ(lastUse(), early);
  writeShellRecord(context(seen("vlc.desktop", "1700000000")));
  EXPECT_EQ(lastUse(), middle);
}

INSTANTIATE_TEST_SUITE_P(
    , DamagedRecords,
    testing::Values(Damage{"Empty", ""}, Damage{"Text", "vlc was used yesterday\n"},
                    Damage{"Zeros", std::string(4096, '\0')},
                    Damage{"CutShort",
                           "<application-state><context id=\"\"><application id=\"vlc.desktop\" "
                           "last-seen=\"1700000000\"/></context>"},
                    Damage{"CutShortList", "<xbel version=\"1.0\"><book"},
                    Damage{"NoUtf8",
                           "<application-state><application id=\"vlc.desktop\" last-seen="
                           "\"1700000000\"/>\xff</application-state>"},
                    Damage{"Array", R"(["vlc", 1700000000])"},
                    Damage{"OtherKinds", R"({"vlc": "1700000000", "mpv": {"vlc": 1700000000}})"},
                    Damage{"Negative", R"({"vlc": -1})"},
                    Damage{"TooLargeNumber", R"({"vlc": 9223372036854775807})"},
                    Damage{"LargestNumber", R"({"vlc": 18446744073709551615})"},
                    Damage{"DeepArrays", std::string(100'000, '[')},
                    Damage{"DeepObjects", R"({"vlc": )" + std::string(100'000, '[') +
                                              std::string(100'000, ']') + "}"},
                    Damage{"Huge", "<application-state>" + std::string(std::size_t{9} << 20U, ' ') +
                                       "<application id=\"vlc.desktop\" last-seen=\"1700000000\"/>"
                                       "</application-state>"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(LastUseTest, WhatIsNoFileHoldsNobodyUp) {
  std::filesystem::create_directories(shellRecord());
  ASSERT_EQ(::mkfifo(recentFiles().c_str(), 0600), 0);
  std::filesystem::create_directories(OpenedApplications::standardFile().parent_path());
  std::filesystem::create_symlink("/dev/zero", OpenedApplications::standardFile());
  EXPECT_EQ(lastUse(), std::nullopt);
}

}  // namespace
}  // namespace talmo::test
