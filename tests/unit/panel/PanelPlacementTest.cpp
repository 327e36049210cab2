#include <optional>

#include <gtest/gtest.h>

#include "panel/PanelPlacement.h"

namespace talmo {
namespace {

class Button : public StatusButton {
 public:
  WindowIdentifier window() const override { return 1; }
  std::optional<Rect> windowFrame() const override { return frame; }
  Rect visibleFrame() const override { return visible; }

  std::optional<Rect> frame = Rect{.x = 500, .y = 876, .width = 30, .height = 24};
  Rect visible{.x = 0, .y = 40, .width = 1440, .height = 836};
};

constexpr Size size{.width = 300, .height = 400};

TEST(PanelPlacement, ThePanelHangsCentredOnePointBelowItsIcon) {
  EXPECT_EQ(panelFrame(Button(), size), (Rect{.x = 365, .y = 475, .width = 300, .height = 400}));
}

TEST(PanelPlacement, AnOddWidthIsCentredToTheHalfPoint) {
  EXPECT_EQ(panelFrame(Button(), {.width = 301, .height = 400}).x, 364.5);
}

TEST(PanelPlacement, ItStaysWithinTheSidesOfItsScreen) {
  Button button;
  button.frame->x = 100;
  EXPECT_EQ(panelFrame(button, size).x, 0);
  button.frame->x = 135;
  EXPECT_EQ(panelFrame(button, size).x, 0);
  button.frame->x = 136;
  EXPECT_EQ(panelFrame(button, size).x, 1);
  button.frame->x = 1400;
  EXPECT_EQ(panelFrame(button, size).x, 1140);
  button.visible.x = 1000;
  button.visible.width = 800;
  button.frame->x = 1010;
  EXPECT_EQ(panelFrame(button, size).x, 1000);
}

TEST(PanelPlacement, OnAScreenThatIsNarrowerItEndsAtTheRightEdge) {
  Button button;
  button.visible = {.x = 450, .y = 0, .width = 200, .height = 876};
  EXPECT_EQ(panelFrame(button, size).x, 350);
}

TEST(PanelPlacement, ItStaysAboveTheBottomOfItsScreen) {
  Button button;
  EXPECT_EQ(panelFrame(button, {.width = 300, .height = 835}).y, 40);
  EXPECT_EQ(panelFrame(button, {.width = 300, .height = 834}).y, 41);
  // A bar at the bottom: the icon is below everything.
  button.frame->y = 0;
  EXPECT_EQ(panelFrame(button, size).y, 40);
}

TEST(PanelPlacement, ItIsNoHigherThanItsScreen) {
  EXPECT_EQ(panelFrame(Button(), {.width = 300, .height = 2000}),
            (Rect{.x = 365, .y = 40, .width = 300, .height = 836}));
}

TEST(PanelPlacement, WithoutAnIconItIsInTheRightUpperCorner) {
  Button button;
  button.frame.reset();
  EXPECT_EQ(panelFrame(button, size), (Rect{.x = 1140, .y = 475, .width = 300, .height = 400}));
}

}  // namespace
}  // namespace talmo
