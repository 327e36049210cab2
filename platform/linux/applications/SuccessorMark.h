#pragma once

namespace talmo {

/// The variable in the environment of an instance of this program that was started to follow the
/// one that started it, which is about to end.
constexpr const char* successorMark = "TALMO_SUCCESSOR";

/// Whether this process is such an instance. Takes the mark away, which is not for the programs
/// that are started later. Once, before there are threads.
bool takeSuccessorMark();

}  // namespace talmo
