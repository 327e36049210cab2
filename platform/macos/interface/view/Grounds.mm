#include "platform/macos/interface/view/Grounds.h"

#include "platform/macos/interface/view/Metrics.h"
#include "platform/macos/interface/view/Palette.h"

namespace talmo {
namespace {

void setBox(CALayer* layer, Ground ground, Ground border) {
  setGround(layer, ground);
  layer.cornerRadius = Metrics::cardRadius;
  layer.borderWidth = 1 / layer.contentsScale;
  layer.borderColor = colourOf(border).CGColor;
}

}  // namespace

void setGround(CALayer* layer, Ground ground) {
  layer.backgroundColor = colourOf(ground).CGColor;
}

void setStackGround(CALayer* layer, ViewRole role) {
  switch (role) {
    case ViewRole::card:
    case ViewRole::offer:
      setBox(layer, Ground::card, Ground::cardBorder);
      break;
    case ViewRole::warning:
      setBox(layer, Ground::warning, Ground::warningBorder);
      break;
    case ViewRole::chip:
      setGround(layer, Ground::chip);
      layer.cornerRadius = layer.bounds.size.height / 2;
      break;
    default:
      break;
  }
}

}  // namespace talmo
