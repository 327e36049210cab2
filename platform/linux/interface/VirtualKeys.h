#pragma once

#include <cstdint>
#include <Qt>

namespace talmo {

/// The virtual key code (HIToolbox's Events.h) of a key of the toolkit; one that stands for no key
/// where the program has no use for it.
std::uint16_t virtualKeyCode(int key);

/// The held modifiers as in `InterfaceEvent`.
std::uint64_t heldModifiers(Qt::KeyboardModifiers modifiers);

}  // namespace talmo
