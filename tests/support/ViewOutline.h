#pragma once

#include <string>
#include <vector>

#include "platform/View.h"

namespace talmo::test {

/// A view in writing, a line for each of its parts, its children indented below it:
///
///     role identity "text" <picture> on highlighted label="..." hint="..." action menu
///
/// Symbols and assets have their name in angle brackets in place of a text.
std::string outline(const View& view);

/// The part that a path of identities leads to from the view, which is not in the path itself;
/// nothing (a null pointer) when there is none.
const View* part(const View& view, const std::vector<std::string>& path);

/// Every text of a view, in reading order.
std::vector<std::string> texts(const View& view);

/// Every part whose children share an identity, or have none; by its own identity.
std::vector<std::string> ambiguousParts(const View& view);

}  // namespace talmo::test
