#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "platform/Image.h"

namespace talmo {

class ScriptingObject;

/// What a scripting property holds: a text, a four-character code, a picture, or another object.
using ScriptingValue =
    std::variant<std::string, std::uint32_t, Image, std::shared_ptr<ScriptingObject>>;

}  // namespace talmo
