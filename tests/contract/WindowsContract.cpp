#include "tests/contract/WindowsContract.h"

#include <utility>

namespace talmo::test {

std::unique_ptr<Window> WindowsContract::make() {
  auto window = world().windows().makeWindow({.title = "A window",
                                              .styleMask = 0x8003,
                                              .contentSize = {.width = 300, .height = 200},
                                              .isTitleBarTransparent = true,
                                              .isTitleHidden = true,
                                              .isMovableByBackground = true,
                                              .isReleasedWhenClosed = false,
                                              .isOpaque = false,
                                              .hasClearBackground = true,
                                              .acceptsFirstMouse = true});
  window->setOnWillClose([this] { ++closings_; });
  return window;
}

View WindowsContract::content(const std::string& button, std::function<void()> action) {
  View text{.identity = "text", .kind = ViewKind::text, .role = ViewRole::label, .text = button};
  View pressed{.identity = button,
               .kind = ViewKind::button,
               .role = ViewRole::primaryButton,
               .children = {std::move(text)},
               .action = std::move(action)};
  return {.identity = "content",
          .kind = ViewKind::vertical,
          .role = ViewRole::material,
          .children = {std::move(pressed)}};
}

TEST_P(WindowsContract, AWindowIsHiddenUntilItIsBroughtToTheFront) {
  const auto window = make();
  window->center();
  window->setContent(content("button", {}));
  EXPECT_FALSE(window->isVisible());
  window->makeKeyAndOrderFront();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(closings_, 0);
}

TEST_P(WindowsContract, ClosingTellsOnceAndTheWindowCanComeBack) {
  const auto window = make();
  for (int round = 1; round <= 2; ++round) {
    window->makeKeyAndOrderFront();
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(closings_, round);
    window->close();
    EXPECT_EQ(closings_, round);
  }
}

TEST_P(WindowsContract, ClosingAWindowThatIsNotThereTellsNobody) {
  const auto window = make();
  window->close();
  EXPECT_EQ(closings_, 0);
}

TEST_P(WindowsContract, ThePersonsClosingTellsToo) {
  const auto window = make();
  window->makeKeyAndOrderFront();
  world().personCloses();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(closings_, 1);
}

TEST_P(WindowsContract, AWindowThatIsClosedWhileItClosesIsClosedOnce) {
  const auto window = make();
  window->setOnWillClose([&] {
    ++closings_;
    if (closings_ < 5) window->close();
  });
  window->makeKeyAndOrderFront();
  window->close();
  EXPECT_EQ(closings_, 1);
  window->makeKeyAndOrderFront();
  world().personCloses();
  EXPECT_EQ(closings_, 2);
  EXPECT_FALSE(window->isVisible());
}

TEST_P(WindowsContract, AWindowMayBeLetGoOfWhileItIsClosed) {
  for (const bool byThePerson : {false, true}) {
    auto window = make();
    window->setOnWillClose([&] {
      ++closings_;
      window.reset();
    });
    window->makeKeyAndOrderFront();
    if (byThePerson) {
      world().personCloses();
    } else {
      Window& closed = *window;
      closed.close();
    }
    EXPECT_EQ(window, nullptr);
  }
  EXPECT_EQ(closings_, 2);
}

TEST_P(WindowsContract, AWindowMayBeLetGoOfByAnActionOfItsContent) {
  auto window = make();
  window->setContent(content("button", [&] { window.reset(); }));
  window->makeKeyAndOrderFront();
  world().press("button");
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(closings_, 0);
}

TEST_P(WindowsContract, LettingGoOfAWindowTellsNobody) {
  auto window = make();
  window->makeKeyAndOrderFront();
  window.reset();
  EXPECT_EQ(closings_, 0);
}

TEST_P(WindowsContract, TheLastContentIsWhatIsPressed) {
  const auto window = make();
  std::string pressed;
  window->setContent(content("one", [&] { pressed += "1"; }));
  window->makeKeyAndOrderFront();
  world().press("one");
  window->setContent(content("one", [&] { pressed += "2"; }));
  world().press("one");
  window->setContent(content("two", [&] { pressed += "3"; }));
  world().press("two");
  EXPECT_EQ(pressed, "123");
}

TEST_P(WindowsContract, AContentMayBeReplacedByItsOwnAction) {
  const auto window = make();
  int presses = 0;
  window->setContent(content("one", [&] {
    ++presses;
    window->setContent(content("two", [&] { ++presses; }));
  }));
  window->makeKeyAndOrderFront();
  world().press("one");
  world().press("two");
  EXPECT_EQ(presses, 2);
}

}  // namespace talmo::test
