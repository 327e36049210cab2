#pragma once

class QPoint;

namespace talmo {

struct Menu;

/// Drops `menu` down at a point of the screen and returns when it has closed, after its `didClose`
/// and what was chosen. The main queue is served meanwhile. Main thread.
void popUp(const Menu& menu, const QPoint& place);

}  // namespace talmo
