#include "onboarding/ProgressSegments.h"

#include <string>

#include "panel/ViewParts.h"

namespace talmo {
namespace {

View segment(std::string identity, bool isFilled) {
  View view;
  view.identity = std::move(identity);
  view.kind = ViewKind::segment;
  view.role = ViewRole::segment;
  view.isOn = isFilled;
  return view;
}

}  // namespace

View progressSegments(Step current) {
  View segments = horizontalView(
      "progress", ViewRole::segments,
      {segment("permission", current == Step::permission), segment("done", current == Step::done)});
  segments.accessibilityLabel = current == Step::permission ? "Step 1 of 2" : "Step 2 of 2";
  return segments;
}

}  // namespace talmo
