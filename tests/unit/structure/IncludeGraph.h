#pragma once

#include <map>
#include <string>
#include <vector>

namespace talmo::test {

/// The source files of a tree, by their path from its root, with their texts.
using SourceTree = std::map<std::string, std::string>;

/// Breaches of the rules on what may include what, one sentence each:
/// - an include in quotes names a file of the tree, from its root;
/// - the program and `support` know no backend, no toolkit and no system header;
/// - the services know `support` and each other, and nothing of the program;
/// - a backend knows the services, `support` and itself; its `main.cpp` also knows `app`;
/// - the adapter knows the services, `support` and itself; its folder for a system, which the rest
///   of it does not know, also knows that system's backend;
/// - outside of backends and the adapter's folders for systems no `#if` asks for the operating
///   system;
/// - nothing but tests and benchmarks knows a test.
std::vector<std::string> includeBreaches(const SourceTree& tree);

/// The include cycles of the tree, a source and its header counted as one: each as the names along
/// it, in words. Empty when there is none.
std::vector<std::string> includeCycles(const SourceTree& tree);

}  // namespace talmo::test
