#pragma once

#include "platform/macos/interface/view/TLMHostingView.h"

/// One whose buttons take the click that makes their window the active one.
@interface FirstMouseHostingView : TLMHostingView
@end
