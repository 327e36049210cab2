#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "platform/linux/applications/OpenedApplications.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr Date early(1'600'000'000s);
constexpr Date late(1'700'000'000s);

class OpenedApplicationsTest : public testing::Test {
 protected:
  TestPlatform platform_;
  TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_.path() / "talmo" / "opened.json";
  OpenedApplications opened_{file_};
};

TEST_F(OpenedApplicationsTest, WhatWasNeverOpenedHasNoDate) {
  EXPECT_EQ(opened_.lastOpened("vlc"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_.parent_path()));
  opened_.remember("mpv", late);
  EXPECT_EQ(opened_.lastOpened("vlc"), std::nullopt);
}

TEST_F(OpenedApplicationsTest, EachHasTheDateOfItsLastOpeningAlsoInTheNextRun) {
  opened_.remember("vlc", early);
  opened_.remember("org.gnome.Rhythmbox3", early);
  opened_.remember("vlc", late + 999ms);
  const OpenedApplications next(file_);
  for (const OpenedApplications* one : {&std::as_const(opened_), &next}) {
    EXPECT_EQ(one->lastOpened("vlc"), late);
    EXPECT_EQ(one->lastOpened("org.gnome.Rhythmbox3"), early);
  }
  EXPECT_THAT(platform_.log().lines(), IsEmpty());
}

TEST_F(OpenedApplicationsTest, AnIdWithAnyBytesDoesNoHarm) {
  opened_.remember("vlc", early);
  opened_.remember("a \"b\" \\ \xff\n", late);
  EXPECT_EQ(opened_.lastOpened("vlc"), early);
}

TEST_F(OpenedApplicationsTest, OneAfterTheOtherWhenSeveralThreadsRemember) {
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&, thread] {
      for (int number = 0; number < 5; ++number) {
        opened_.remember(std::to_string(thread) + "-" + std::to_string(number), late);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (int thread = 0; thread < 4; ++thread) {
    for (int number = 0; number < 5; ++number) {
      EXPECT_EQ(opened_.lastOpened(std::to_string(thread) + "-" + std::to_string(number)), late);
    }
  }
}

TEST_F(OpenedApplicationsTest, WhatCannotBeStoredIsOneLineAndChangesNothing) {
  // A file in place of the folder stops an administrator too.
  std::ofstream(file_.parent_path()) << "in the way";
  opened_.remember("vlc", late);
  EXPECT_EQ(opened_.lastOpened("vlc"), std::nullopt);
  EXPECT_THAT(platform_.log().messages(LogLevel::notice),
              ElementsAre(HasSubstr("cannot remember that vlc was opened: ")));
}

}  // namespace
}  // namespace talmo::test
