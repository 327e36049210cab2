#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/LinuxApplication.h"
#include "platform/ProcessIdentifier.h"
#include "support/Time.h"

namespace talmo {

/// The bus names under which the application's instances are on the session bus as media players:
/// in the table's order, an instance without a suffix before the others. Nothing when the bus did
/// not answer until `deadline`.
std::optional<std::vector<std::string>> mprisNames(const LinuxApplication& application,
                                                   Uptime deadline);

/// The processes that own these names, each once. Names that are gone by now are left out.
std::vector<ProcessIdentifier> mprisProcesses(const std::vector<std::string>& names,
                                              Uptime deadline);

}  // namespace talmo
