#pragma once

#import <QuartzCore/QuartzCore.h>

#include "platform/macos/interface/view/Ground.h"
#include "platform/ViewRole.h"

namespace talmo {

/// Gives a layer the colour, with the appearance that is the current one.
void setGround(CALayer* layer, Ground ground);

/// Gives the layer of a stack what its role stands on; nothing for most.
void setStackGround(CALayer* layer, ViewRole role);

}  // namespace talmo
