#include <optional>

#include <gtest/gtest.h>

#include "keys/MediaKeyTap.h"

namespace talmo {
namespace {

using Decoded = std::optional<DecodedMediaKey>;

TEST(MediaKeyDecode, ReadsKeyStateAndRepeat) {
  EXPECT_EQ(MediaKeyTap::decode(0x00100A00), (Decoded{{MediaKey::playPause, true, false}}));
  EXPECT_EQ(MediaKeyTap::decode(0x00110B00), (Decoded{{MediaKey::next, false, false}}));
  EXPECT_EQ(MediaKeyTap::decode(0x00120A01), (Decoded{{MediaKey::previous, true, true}}));
  EXPECT_EQ(MediaKeyTap::decode(0x00130A00), (Decoded{{MediaKey::fast, true, false}}));
  EXPECT_EQ(MediaKeyTap::decode(0x00140A00), (Decoded{{MediaKey::rewind, true, false}}));
}

TEST(MediaKeyDecode, HasNothingForOtherKeyCodes) {
  for (const std::int64_t data1 : {0x00000A00, 0x00150A00, 0x000F0A00, 0x7FFF0A00}) {
    EXPECT_EQ(MediaKeyTap::decode(data1), std::nullopt) << data1;
  }
  EXPECT_EQ(MediaKeyTap::decode(-1), std::nullopt);
}

TEST(MediaKeyDecode, EveryStateButDownIsUp) {
  for (std::int64_t state = 0; state < 256; ++state) {
    const Decoded decoded = MediaKeyTap::decode(0x00100000 | (state << 8));
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->isKeyDown, state == 0x0A) << state;
  }
}

TEST(MediaKeyDecode, ReadsTheLow32BitsOnly) {
  EXPECT_EQ(MediaKeyTap::decode(0x7700000000100A00), (Decoded{{MediaKey::playPause, true, false}}));
}

}  // namespace
}  // namespace talmo
