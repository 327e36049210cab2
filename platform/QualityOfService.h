#pragma once

namespace talmo {

/// How urgent the work of a queue or thread is. A backend maps it to what its system offers; it
/// never changes what happens, only how soon.
enum class QualityOfService { unspecified, utility, userInitiated, userInteractive };

}  // namespace talmo
