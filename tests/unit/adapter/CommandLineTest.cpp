#include <array>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "adapter/CommandLine.h"

namespace talmo::test {
namespace {

using Run = CommandLine::Run;

TEST(CommandLine, IsOneOfThreeRuns) {
  struct Row {
    std::vector<std::string> arguments;
    CommandLine expected;
  };
  const std::vector<Row> rows{
      {{"stream"}, {.run = Run::stream}},
      {{"get"}, {.run = Run::get}},
      {{"get", "--no-artwork"}, {.run = Run::get, .wantsArtwork = false}},
      {{"send", "0"}, {.run = Run::send, .command = 0}},
      {{"send", "5"}, {.run = Run::send, .command = 5}},
      {{"send", "007"}, {.run = Run::send, .command = 7}},
      {{"send", "2147483647"}, {.run = Run::send, .command = 2147483647}},
  };
  for (const auto& [arguments, expected] : rows) {
    EXPECT_EQ(CommandLine::parse(arguments), expected) << testing::PrintToString(arguments);
  }
}

TEST(CommandLine, IsNothingElse) {
  const std::vector<std::vector<std::string>> rows{
      {},
      {""},
      {"Stream"},
      {"stream "},
      {"stream", "--no-artwork"},
      {"stream", ""},
      {"get", ""},
      {"get", "--artwork"},
      {"get", "--no-artwork", "--no-artwork"},
      {"--no-artwork", "get"},
      {"send"},
      {"send", ""},
      {"send", "-1"},
      {"send", "-0"},
      {"send", "+1"},
      {"send", " 1"},
      {"send", "1 "},
      {"send", "1\n"},
      {"send", std::string("1\0", 2)},
      {"send", "0x1"},
      {"send", "1.0"},
      {"send", "1e1"},
      {"send", "two"},
      {"send", "2147483648"},
      {"send", "99999999999999999999999999"},
      {"send", "1", "2"},
      {"send", "$(echo 1)"},
  };
  for (const auto& arguments : rows) {
    EXPECT_EQ(CommandLine::parse(arguments), std::nullopt) << testing::PrintToString(arguments);
  }
}

TEST(CommandLine, TakesAnyArgumentsAndOnlyRunsThatCanBeWrittenBack) {
  const std::array<std::string, 10> pieces{"stream", "get", "send", "--no-artwork", "1", "-",
                                           "42",     "",    " ",    "\xff\n"};
  for (unsigned seed = 1; seed <= 20; ++seed) {
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    int accepted = 0;
    for (int round = 0; round < 2000; ++round) {
      std::vector<std::string> arguments(below(4));
      for (std::string& argument : arguments) {
        for (std::size_t part = 1 + below(2); part > 0; --part) {
          argument += pieces[below(pieces.size())];
        }
      }
      const auto line = CommandLine::parse(arguments);
      if (!line) continue;
      ++accepted;
      std::vector<std::string> written{line->run == Run::stream ? "stream"
                                       : line->run == Run::get  ? "get"
                                                                : "send"};
      if (!line->wantsArtwork) written.emplace_back("--no-artwork");
      if (line->run == Run::send) written.push_back(std::to_string(line->command));
      ASSERT_EQ(arguments, written) << "seed " << seed;
    }
    EXPECT_GT(accepted, 0) << "seed " << seed;
  }
}

}  // namespace
}  // namespace talmo::test
