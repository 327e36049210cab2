#include "platform/linux/applications/SuccessorMark.h"

#include <cstdlib>

namespace talmo {

bool takeSuccessorMark() {
  const bool isSuccessor = std::getenv(successorMark) != nullptr;
  ::unsetenv(successorMark);
  return isSuccessor;
}

}  // namespace talmo
