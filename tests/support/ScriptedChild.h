#pragma once

#include <filesystem>
#include <string>

#include "platform/ChildProcessParameters.h"
#include "platform/simulated/SimulatedChildScript.h"

namespace talmo::test {

/// What starts `executable`, the program of `tests/backend/processes/ChildProgram.cpp`, so that it
/// does what `script` says. What it is to write is put into files of `folder`, which are new.
ChildProcessParameters scriptedChild(const SimulatedChildScript& script,
                                     const std::string& executable,
                                     const std::filesystem::path& folder);

}  // namespace talmo::test
