#pragma once

#include <string>

namespace talmo::test {

/// The text with everything in it escaped that means something in a URL.
std::string urlEscaped(const std::string& text);

}  // namespace talmo::test
