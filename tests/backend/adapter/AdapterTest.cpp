#include <csignal>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/backend/adapter/AdapterProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace talmo::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

const std::string perl = "/usr/bin/perl";
const std::filesystem::path script = TALMO_ADAPTER_SCRIPT;
const std::filesystem::path framework = TALMO_ADAPTER_FRAMEWORK;
const std::string emptyState = R"({"diff":false,"payload":{}})";

/// One line of the helper's, and no more.
testing::Matcher<std::string> oneLine(const std::string& beginning) {
  return AllOf(StartsWith("mediaremote-adapter: " + beginning), MatchesRegex("[^\n]*\n"));
}

class AdapterTest : public testing::Test {
 protected:
  /// What starts the script with these arguments, on a machine without a session bus.
  AdapterProcess::Start script(const std::vector<std::string>& arguments) const {
    AdapterProcess::Start start{.arguments = {perl, test::script.string()},
                                .environment = withoutBus()};
    start.arguments.insert(start.arguments.end(), arguments.begin(), arguments.end());
    return start;
  }

  std::map<std::string, std::string> withoutBus() const {
    return {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder_.path() / "no-bus").string()},
            {"XDG_RUNTIME_DIR", folder_.path().string()}};
  }

  /// Where a library of the test's own can be put.
  std::filesystem::path otherFramework() const {
    const std::filesystem::path path = folder_.path() / "Other.framework";
    std::filesystem::create_directories(path);
    return path;
  }

  TemporaryFolder folder_;
};

TEST_F(AdapterTest, GetsAnEmptyObjectWithoutABus) {
  for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--no-artwork"}}) {
    std::vector<std::string> arguments{framework, "get"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    AdapterProcess run(script(arguments));
    EXPECT_EQ(run.waitForExit(), 0);
    EXPECT_EQ(run.restOfOutput(), "{}\n");
    EXPECT_THAT(run.errors(), IsEmpty());
  }
}

TEST_F(AdapterTest, CannotSendWithoutABus) {
  AdapterProcess run(script({framework, "send", "2"}));
  EXPECT_EQ(run.waitForExit(), 1);
  EXPECT_THAT(run.restOfOutput(), IsEmpty());
  EXPECT_THAT(run.errors(), oneLine("command 2 was not delivered"));
}

TEST_F(AdapterTest, TellsItsUsage) {
  const std::vector<std::vector<std::string>> rows{
      {},
      {framework},
      {framework, ""},
      {framework, "play"},
      {framework, "get", "--help"},
      {framework, "stream", "--no-artwork"},
      {framework, "send"},
      {framework, "send", "two"},
      {framework, "send", "-1"},
      {framework, "-e", "print 1"},
  };
  for (const auto& arguments : rows) {
    AdapterProcess run(script(arguments));
    EXPECT_EQ(run.waitForExit(), 2) << testing::PrintToString(arguments);
    EXPECT_THAT(run.restOfOutput(), IsEmpty());
    EXPECT_THAT(run.errors(), oneLine("usage: "));
  }
}

TEST_F(AdapterTest, SaysThatThereIsNoFramework) {
  AdapterProcess run(script({folder_.path() / "None.framework", "get"}));
  EXPECT_EQ(run.waitForExit(), 1);
  EXPECT_THAT(run.restOfOutput(), IsEmpty());
  EXPECT_THAT(run.errors(), AllOf(oneLine("cannot load the library: "),
                                  HasSubstr("None.framework/MediaRemoteAdapter")));
}

TEST_F(AdapterTest, SaysThatALibraryIsNone) {
  std::ofstream(otherFramework() / "MediaRemoteAdapter") << "text";
  AdapterProcess run(script({otherFramework(), "get"}));
  EXPECT_EQ(run.waitForExit(), 1);
  EXPECT_THAT(run.errors(), oneLine("cannot load the library: "));
}

TEST_F(AdapterTest, SaysThatALibraryIsAnotherOne) {
  Dl_info library{};
  ASSERT_NE(::dladdr(reinterpret_cast<void*>(&std::terminate), &library), 0);
  std::filesystem::create_symlink(std::filesystem::canonical(library.dli_fname),
                                  otherFramework() / "MediaRemoteAdapter");
  AdapterProcess run(script({otherFramework(), "get"}));
  EXPECT_EQ(run.waitForExit(), 1);
  EXPECT_THAT(run.errors(), AllOf(oneLine("cannot use the library: "),
                                  HasSubstr("undefined symbol: talmoAdapterMain")));
}

TEST_F(AdapterTest, InterpretsNoArgument) {
  const std::string name = "it's a \"$(touch marker)`touch marker`\"; touch marker #\n\\ $0 %s @x";
  const std::filesystem::path oddFramework = folder_.path() / (name + ".framework");
  const std::filesystem::path oddScript = folder_.path() / (name + ".pl");
  std::filesystem::create_directory_symlink(framework, oddFramework);
  std::filesystem::copy_file(test::script, oddScript);
  const auto run = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {perl, oddScript, oddFramework});
    return AdapterProcess::Start{.arguments = arguments, .environment = withoutBus()};
  };

  AdapterProcess get(run({"get"}));
  EXPECT_EQ(get.waitForExit(), 0);
  EXPECT_EQ(get.restOfOutput(), "{}\n");
  EXPECT_THAT(get.errors(), IsEmpty());
  const std::vector<std::string> numbers{"$(echo 2)", "2;touch marker", "2\n", "`echo 2`", name};
  for (const std::string& number : numbers) {
    AdapterProcess send(run({"send", number}));
    EXPECT_EQ(send.waitForExit(), 2) << number;
    EXPECT_THAT(send.errors(), oneLine("usage: "));
  }
  EXPECT_FALSE(std::filesystem::exists("marker"));
  EXPECT_FALSE(std::filesystem::exists(folder_.path() / "marker"));
}

TEST_F(AdapterTest, TakesNoArgumentFromTheEnvironment) {
  AdapterProcess::Start start = script({framework, "get"});
  start.environment.insert({{"TALMO_ADAPTER_ARGUMENT_COUNT", "2"},
                            {"TALMO_ADAPTER_ARGUMENT_0", "send"},
                            {"TALMO_ADAPTER_ARGUMENT_1", "2"}});
  AdapterProcess run(start);
  EXPECT_EQ(run.waitForExit(), 0);
  EXPECT_EQ(run.restOfOutput(), "{}\n");
}

TEST_F(AdapterTest, StreamsUntilItIsTerminated) {
  AdapterProcess run(script({framework, "stream"}));
  EXPECT_EQ(run.nextLine(), emptyState);
  ::kill(run.pid(), SIGTERM);
  EXPECT_EQ(run.waitForExit(), -SIGTERM);
  EXPECT_THAT(run.restOfOutput(), IsEmpty());
  EXPECT_THAT(run.errors(), IsEmpty());
}

TEST_F(AdapterTest, EndsAStreamWhenItsReaderGoes) {
  AdapterProcess run(script({framework, "stream"}));
  EXPECT_EQ(run.nextLine(), emptyState);
  run.closeOutput();
  EXPECT_EQ(run.waitForExit(), 0);
  EXPECT_THAT(run.errors(), IsEmpty());
}

TEST_F(AdapterTest, EndsAStreamWithoutAnOutput) {
  AdapterProcess::Start start = script({framework, "stream"});
  start.isOutputClosed = true;
  AdapterProcess run(start);
  EXPECT_EQ(run.waitForExit(), 0);
  EXPECT_THAT(run.errors(), IsEmpty());
}

TEST_F(AdapterTest, EndsAStreamWhenItsParentIsKilled) {
  // The output of this parent is the helper's as well, and only theirs.
  AdapterProcess::Start start = script({framework, "stream"});
  start.arguments.insert(start.arguments.begin(), {perl, "-e", "fork or exec @ARGV; sleep;"});
  AdapterProcess parent(start);
  EXPECT_EQ(parent.nextLine(), emptyState);
  ::kill(parent.pid(), SIGKILL);
  EXPECT_EQ(parent.waitForExit(), -SIGKILL);
  EXPECT_TRUE(parent.waitForEndOfOutput());
}

}  // namespace
}  // namespace talmo::test
