#pragma once

#import <QuartzCore/QuartzCore.h>

namespace talmo {

/// Whether the person has asked the system for less motion. Main thread only.
bool reducesMotion();

/// A layer whose properties change without motion, unless it is animated on purpose.
CALayer* makeStillLayer();

}  // namespace talmo
