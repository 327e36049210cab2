#include <gtest/gtest.h>

#include "platform/linux/browsers/WindowOrder.h"

namespace talmo::test {
namespace {

using Names = std::vector<std::string>;

TitledWindow window(const std::string& id, const std::vector<std::string>& titles) {
  return {.window = {.id = id, .tabs = {}}, .titles = titles};
}

std::vector<std::string> order(const std::vector<TitledWindow>& windows, const Names& names) {
  std::vector<std::string> ids;
  for (const BrowserWindow& one : inOrderOfNames(windows, names)) ids.push_back(one.id);
  return ids;
}

TEST(WindowOrder, IsThatOfTheNames) {
  const std::vector<TitledWindow> windows{window("1", {"Mail", "News"}), window("2", {"Songs"}),
                                          window("3", {"Weather"})};
  EXPECT_EQ(order(windows, {"Weather - Chromium", "News - Chromium", "Songs - Chromium"}),
            (Names{"3", "1", "2"}));
}

TEST(WindowOrder, OfTwoTitlesThatFitTheLongerOneCounts) {
  EXPECT_EQ(order({window("1", {"a"}), window("2", {"about:blank"})}, {"about:blank - Chromium"}),
            (Names{"2", "1"}));
}

TEST(WindowOrder, WindowsWithoutANameComeLastAsTheyWere) {
  const std::vector<TitledWindow> windows{window("1", {"a"}), window("2", {""}),
                                          window("3", {"b"})};
  EXPECT_EQ(order(windows, {"Settings", "b - Chromium"}), (Names{"3", "1", "2"}));
  EXPECT_EQ(order(windows, {}), (Names{"1", "2", "3"}));
}

TEST(WindowOrder, EqualNamesStandForOneWindowEach) {
  EXPECT_EQ(order({window("1", {"New Tab"}), window("2", {"New Tab"})},
                  {"New Tab - Chromium", "New Tab - Chromium", "New Tab - Chromium"}),
            (Names{"1", "2"}));
  EXPECT_EQ(order({}, {"New Tab"}), Names{});
}

}  // namespace
}  // namespace talmo::test
