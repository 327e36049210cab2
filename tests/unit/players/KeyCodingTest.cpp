#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "players/KeyCoding.h"

namespace talmo {
namespace {

TEST(KeyCoding, WritesAndReadsAKeyMap) {
  const KeyMap map{{49, 0}, {124, 0x100000}, {123, 0x100000}};
  const nlohmann::json json = map;
  EXPECT_EQ(json, nlohmann::json::parse(R"({
    "playPause": {"keyCode": 49, "flags": 0},
    "next": {"keyCode": 124, "flags": 1048576},
    "previous": {"keyCode": 123, "flags": 1048576}})"));
  EXPECT_EQ(json.get<KeyMap>(), map);
}

TEST(KeyCoding, RefusesAnObjectWithoutItsMembers) {
  EXPECT_THROW(nlohmann::json::parse(R"({"keyCode": 49})").get<KeyStroke>(),
               nlohmann::json::exception);
}

}  // namespace
}  // namespace talmo
