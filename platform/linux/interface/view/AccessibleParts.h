#pragma once

namespace talmo {

/// Lets assistive technology know of the parts of a content what their widgets do not say by
/// themselves: roles, and of a button its highlight and whether it is chosen. Names and hints are
/// the widgets' own. Main thread only; more than once is as good as once.
void installAccessibleParts();

}  // namespace talmo
