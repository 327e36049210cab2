#pragma once

namespace talmo::test {

/// For as long as it lives, looking up a host name that ends in ".hanging.test" does not come back.
/// The look-up's end then is a failure. Made once in a test.
class HangingNames {
 public:
  HangingNames();
  ~HangingNames();
  HangingNames(const HangingNames&) = delete;
  HangingNames& operator=(const HangingNames&) = delete;

  /// How many look-ups hang.
  static int count();
};

}  // namespace talmo::test
