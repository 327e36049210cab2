#pragma once

#include <map>
#include <string>
#include <variant>

#include "platform/MediaRemoteData.h"

namespace talmo {

/// A value of a now-playing dictionary; other kinds are left out of it.
using MediaRemoteValue = std::variant<std::string, double, MediaRemoteData>;

/// A now-playing dictionary, by the framework's own keys.
using MediaRemoteInfo = std::map<std::string, MediaRemoteValue>;

}  // namespace talmo
