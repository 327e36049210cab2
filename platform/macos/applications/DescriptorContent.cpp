#include "platform/macos/applications/DescriptorContent.h"

#include "platform/macos/FourCharacterCode.h"

namespace talmo {

DescriptorContent descriptorContent(std::uint32_t descriptorType) {
  switch (descriptorType) {
    case fourCharacterCode("utxt"):  // typeUnicodeText
    case fourCharacterCode("ut16"):  // typeUTF16ExternalRepresentation
    case fourCharacterCode("utf8"):  // typeUTF8Text
    case fourCharacterCode("TEXT"):  // typeChar
      return DescriptorContent::text;
    case fourCharacterCode("enum"):  // typeEnumerated
      return DescriptorContent::enumerator;
    case fourCharacterCode("type"):  // typeType
      return DescriptorContent::type;
    default:
      return DescriptorContent::bytes;
  }
}

}  // namespace talmo
