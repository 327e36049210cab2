#include "support/Logger.h"

#include "platform/Log.h"
#include "platform/Platform.h"

namespace talmo {

void Logger::writeLine(LogLevel level, std::string_view line) const {
  platform().log().write(level, "nl.brelm.Talmo", category_, line);
}

}  // namespace talmo
