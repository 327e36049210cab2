#pragma once

#include <cstdint>

#include "platform/QualityOfService.h"

namespace talmo {

/// The number that the system has for it, as a `qos_class_t` and, but for the unspecified one, as
/// an `NSQualityOfService`.
std::uint32_t qosClass(QualityOfService quality);

}  // namespace talmo
