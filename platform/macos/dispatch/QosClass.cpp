#include "platform/macos/dispatch/QosClass.h"

namespace talmo {

std::uint32_t qosClass(QualityOfService quality) {
  // <sys/qos.h>
  switch (quality) {
    case QualityOfService::unspecified:
      return 0x00;
    case QualityOfService::utility:
      return 0x11;
    case QualityOfService::userInitiated:
      return 0x19;
    case QualityOfService::userInteractive:
      return 0x21;
  }
  return 0x00;
}

}  // namespace talmo
