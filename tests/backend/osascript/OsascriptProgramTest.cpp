#include <future>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/processes/LinuxChildProcesses.h"

namespace talmo::test {
namespace {

struct Ran {
  ChildTermination termination;
  std::string output;
  std::string errors;
};

/// Runs the Mac's path, as the program does.
Ran osascript(std::vector<std::string> arguments) {
  LinuxChildProcesses children(TALMO_BUNDLE_FOLDER);
  const auto child = children.make({.executable = "/usr/bin/osascript",
                                    .arguments = std::move(arguments),
                                    .standardOutput = ChildOutput::pipe,
                                    .standardError = ChildOutput::pipe});
  std::promise<ChildTermination> ended;
  child->setTerminationHandler(
      [&ended](const ChildTermination& termination) { ended.set_value(termination); });
  const auto words = child->launch();
  EXPECT_EQ(words, std::nullopt);
  if (words) return {};
  Ran ran;
  ran.output = child->standardOutput()->readToEnd();
  ran.errors = child->standardError()->readToEnd();
  ran.termination = ended.get_future().get();
  return ran;
}

constexpr ChildTermination exit(int status) {
  return {.reason = ChildTermination::Reason::exit, .status = status};
}

TEST(OsascriptProgram, PrintsWhatTheScriptReturnsAndALineFeed) {
  const Ran ran = osascript({"-e", "set t to character id 9\nreturn \"a\" & t & 1 & \"\\n\""});
  EXPECT_EQ(ran.termination, exit(0));
  EXPECT_EQ(ran.output, "a\t1\n\n");
  EXPECT_EQ(ran.errors, "");
}

TEST(OsascriptProgram, PrintsNothingForAScriptThatReturnsNothing) {
  const Ran ran = osascript({"-e", "set a to 1"});
  EXPECT_EQ(ran.termination, exit(0));
  EXPECT_EQ(ran.output + ran.errors, "");
}

TEST(OsascriptProgram, TakesItsScriptAsOneArgumentWithQuotesAndLines) {
  const Ran ran = osascript({"-e",
                             "if \"it's\" is \"IT'S\" then -- 'quoted'\r\n"
                             "  return \"a \\\"b\\\" $HOME `c`\n\xC3\xA9\"\nend if"});
  EXPECT_EQ(ran.termination, exit(0));
  EXPECT_EQ(ran.output, "a \"b\" $HOME `c`\n\xC3\xA9\n");
}

TEST(OsascriptProgram, TakesEachFurtherScriptAsTheNextLine) {
  const Ran ran = osascript({"-e", "set a to 20", "-e", "return a + 1"});
  EXPECT_EQ(ran.termination, exit(0));
  EXPECT_EQ(ran.output, "21\n");
}

TEST(OsascriptProgram, RefusesWhatItDoesNotUnderstandWithItsPlace) {
  const Ran ran = osascript({"-e", "set a to 1\n  do shell script \"touch /\""});
  EXPECT_EQ(ran.termination, exit(1));
  EXPECT_EQ(ran.output, "");
  EXPECT_EQ(ran.errors,
            "16:21: syntax error: Line 2, column 6: Expected \u201Cjavascript\u201D but found "
            "\u201Cshell\u201D. (-2741)\n");
}

TEST(OsascriptProgram, SaysWhereAScriptStopped) {
  const Ran ran = osascript({"-e", "tell application id \"no.such.browser\"\nactivate\nend tell"});
  EXPECT_EQ(ran.termination, exit(1));
  EXPECT_EQ(ran.output, "");
  EXPECT_EQ(ran.errors,
            "0:37: execution error: Can\u2019t get application id \"no.such.browser\". (-1728)\n");
}

TEST(OsascriptProgram, TellsHowItIsUsed) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{{},
                                                                     {"-e"},
                                                                     {"return 1"},
                                                                     {"-e", "return 1", "-e"},
                                                                     {"-x", "return 1"},
                                                                     {"script.scpt"}}) {
    const Ran ran = osascript(arguments);
    EXPECT_EQ(ran.termination, exit(2));
    EXPECT_EQ(ran.output, "");
    EXPECT_EQ(ran.errors, "usage: osascript -e script [-e script ...]\n");
  }
}

}  // namespace
}  // namespace talmo::test
