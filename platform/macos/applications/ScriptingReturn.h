#pragma once

namespace talmo {

/// What a scripting method gives back: a pointer to an object, a whole number in as many bytes as
/// it is wide, or something that no scripting value can hold.
enum class ScriptingReturn { object, number, other };

/// By the type's encoding (`@encode`; "Objective-C Runtime Programming Guide", Type Encodings).
ScriptingReturn scriptingReturn(const char* encoding);

}  // namespace talmo
