#pragma once

#include <string>
#include <vector>

namespace talmo {

/// A method call to somebody on the session bus. Its arguments are strings, as those of every call
/// that the backend makes.
struct BusCall {
  std::string destination;
  std::string path;
  std::string interface;
  std::string member;
  std::vector<std::string> arguments;
};

}  // namespace talmo
