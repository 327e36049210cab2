#pragma once

namespace talmo {

/// Where an arrow key moves the keyboard highlight.
enum class HighlightDirection { up, down };

}  // namespace talmo
