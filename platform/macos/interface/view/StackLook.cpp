#include "platform/macos/interface/view/StackLook.h"

#include "platform/macos/interface/view/Metrics.h"

namespace talmo {
namespace {

Insets equalInsets(double inset) {
  return {.left = inset, .top = inset, .right = inset, .bottom = inset};
}

Insets equalSides(double sides, double ends) {
  return {.left = sides, .top = ends, .right = sides, .bottom = ends};
}

/// Between parts that are more than lines of one text.
double gapOf(ViewRole role, ViewRole container) {
  if (role == ViewRole::material || role == ViewRole::step) return Metrics::roomy;
  return container == ViewRole::step ? Metrics::wide : Metrics::step;
}

}  // namespace

Insets insetsOf(ViewRole role, ViewRole container) {
  switch (role) {
    case ViewRole::group:
      // In a list it stands where the rows' content does.
      if (container != ViewRole::section) return {};
      return {.left = Metrics::step,
              .top = Metrics::small,
              .right = Metrics::step,
              .bottom = Metrics::step};
    case ViewRole::glass:
      return equalInsets(Metrics::step);
    case ViewRole::material:
      return {.left = Metrics::margin,
              .top = Metrics::margin,
              .right = Metrics::margin,
              .bottom = Metrics::roomy};
    case ViewRole::card:
    case ViewRole::warning:
    case ViewRole::offer:
      return equalInsets(Metrics::wide);
    case ViewRole::footer:
      return {.left = Metrics::step, .top = Metrics::step, .right = Metrics::small};
    case ViewRole::chip:
      return equalSides(Metrics::step, Metrics::tight);
    case ViewRole::row:
      return {.left = Metrics::step, .top = 3, .right = Metrics::wide, .bottom = 3};
    case ViewRole::primaryButton:
      return equalSides(20, Metrics::step);
    case ViewRole::ghostButton:
      return equalSides(0, Metrics::step);
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
      return equalSides(Metrics::wide, Metrics::small);
    case ViewRole::iconButton:
      return equalInsets(6);
    default:
      return {};
  }
}

double spacingOf(ViewRole role) {
  switch (role) {
    case ViewRole::card:
    case ViewRole::headline:
    case ViewRole::row:
      return Metrics::wide;
    case ViewRole::chip:
    case ViewRole::segments:
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
    case ViewRole::linkButton:
    case ViewRole::ghostButton:
    case ViewRole::iconButton:
      return Metrics::small;
    default:
      return Metrics::step;
  }
}

double gapBetween(const PartKey& above, const PartKey& below, ViewRole role, ViewRole container) {
  const bool areLines = above.kind == ViewKind::text && below.kind == ViewKind::text;
  const bool areRows = above.role == ViewRole::row && below.role == ViewRole::row;
  return areLines || areRows ? Metrics::tight : gapOf(role, container);
}

double leastHeightOf(ViewRole role) {
  switch (role) {
    case ViewRole::row:
      return Metrics::rowHeight;
    case ViewRole::primaryButton:
    case ViewRole::ghostButton:
      return Metrics::largeButtonHeight;
    case ViewRole::prominentButton:
    case ViewRole::plainButton:
    case ViewRole::iconButton:
      return Metrics::buttonHeight;
    default:
      return 0;
  }
}

}  // namespace talmo
