#pragma once

namespace talmo {

/// Where the first run is.
enum class Step { permission, done };

}  // namespace talmo
