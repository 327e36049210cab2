#pragma once

namespace talmo {

/// The weight of a log line. A line without a level of its own is a `notice`.
enum class LogLevel { debug, info, notice, error };

}  // namespace talmo
