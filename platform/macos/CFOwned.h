#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace talmo {

struct CFReleaser {
  void operator()(CFTypeRef object) const { CFRelease(object); }
};

/// Owns the reference that a function with Create or Copy in its name gave away; empty when that
/// gave null. Also for the types of Core Graphics and of the Accessibility interface.
template <class Ref>
using CFOwned = std::unique_ptr<std::remove_pointer_t<Ref>, CFReleaser>;

}  // namespace talmo
