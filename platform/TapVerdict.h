#pragma once

namespace talmo {

/// A tap callback's answer: the event goes on unchanged, or nobody else ever sees it.
enum class TapVerdict { pass, consume };

}  // namespace talmo
