#pragma once

#include "platform/linux/interface/view/Look.h"
#include "platform/linux/interface/view/Part.h"
#include "platform/View.h"
#include "platform/ViewRole.h"

class QWidget;

namespace talmo {

/// The part that shows the view: Look::makePart. The only one that knows all of them.
Part* makePart(const View& view, ViewRole container, const Look& look, QWidget* parent);

}  // namespace talmo
