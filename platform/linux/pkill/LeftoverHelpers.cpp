#include "platform/linux/pkill/LeftoverHelpers.h"

#include <filesystem>
#include <unistd.h>
#include <vector>

#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/processes/Pidfd.h"

namespace talmo {
namespace {

bool isHelper(ProcessIdentifier process, const std::string& script) {
  const std::vector<std::string> arguments = ProcessTable::arguments(process);
  if (arguments.size() < 2 || arguments[1] != script) return false;
  const std::filesystem::path program = ProcessTable::executable(process);
  return program.filename().string().starts_with("perl");
}

/// Whether a Talmo, the one that asks or that of another session, still reads what it says.
bool isInUse(ProcessIdentifier process) {
  const std::string talmo = ProcessTable::executable(::getppid());
  return !talmo.empty() && ProcessTable::executable(ProcessTable::parent(process)) == talmo;
}

}  // namespace

bool endLeftoverHelpers(const std::string& script) {
  bool isAny = false;
  for (const ProcessIdentifier process : ProcessTable::all()) {
    // Opened first, so that it is the process that is looked at, and no later one of its number,
    // that is asked to end.
    const FileDescriptor descriptor(::pidfd_open(process, 0));
    if (!descriptor || !isHelper(process, script) || isInUse(process)) continue;
    isAny = ::pidfd_send_signal(descriptor.get(), SIGTERM, nullptr, 0) == 0 || isAny;
  }
  return isAny;
}

}  // namespace talmo
