#pragma once

#include <cstdint>

namespace talmo {

/// How to read a scripting value that arrived as an Apple event descriptor: as a text, as an
/// enumerator's code, as a type's code (which is also how "missing value" comes), or else as the
/// bytes of a file, which may be a picture's.
enum class DescriptorContent { text, enumerator, type, bytes };

/// By the descriptor's type (AEDataModel.h, AERegistry.h).
DescriptorContent descriptorContent(std::uint32_t descriptorType);

}  // namespace talmo
