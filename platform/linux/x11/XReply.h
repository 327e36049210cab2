#pragma once

#include <cstdlib>
#include <memory>

namespace talmo {

/// Lets go of what XCB allocated.
struct XReplyFree {
  void operator()(void* memory) const { std::free(memory); }
};

/// A reply, error or event that XCB handed over.
template <class Type>
using XReply = std::unique_ptr<Type, XReplyFree>;

}  // namespace talmo
