#include <string>

#include <gmock/gmock.h>

#include "platform/macos/interface/view/KeptParts.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto isNew = std::nullopt;

View text(std::string identity, ViewRole role = ViewRole::label) {
  return {.identity = std::move(identity), .kind = ViewKind::text, .role = role};
}

std::vector<PartKey> shown(const std::vector<View>& views) {
  std::vector<PartKey> keys;
  keys.reserve(views.size());
  for (const View& view : views) keys.push_back(PartKey::of(view));
  return keys;
}

std::vector<std::optional<std::size_t>> kept(const std::vector<View>& before,
                                             const std::vector<View>& views) {
  return keptParts(shown(before), views);
}

TEST(KeptParts, WhatStaysIsKept) {
  EXPECT_THAT(kept({text("a"), text("b")}, {text("a"), text("b")}), ElementsAre(0, 1));
}

TEST(KeptParts, AnotherTextIsTheSamePart) {
  View other = text("a");
  other.text = "Other";
  EXPECT_THAT(kept({text("a")}, {other}), ElementsAre(0));
}

TEST(KeptParts, WhatIsInsertedIsNewAndMovesTheOthers) {
  EXPECT_THAT(kept({text("a"), text("b")}, {text("a"), text("new"), text("b")}),
              ElementsAre(0, isNew, 1));
}

TEST(KeptParts, WhatHasAnotherOrderIsKept) {
  EXPECT_THAT(kept({text("a"), text("b"), text("c")}, {text("c"), text("a")}), ElementsAre(2, 0));
}

TEST(KeptParts, AnotherKindIsAnotherPart) {
  View symbol = text("a");
  symbol.kind = ViewKind::symbol;
  EXPECT_THAT(kept({text("a")}, {symbol}), ElementsAre(isNew));
}

TEST(KeptParts, AnotherRoleIsAnotherPart) {
  EXPECT_THAT(kept({text("a")}, {text("a", ViewRole::title)}), ElementsAre(isNew));
}

TEST(KeptParts, NoPartShowsTwoViews) {
  EXPECT_THAT(kept({text("a")}, {text("a"), text("a")}), ElementsAre(0, isNew));
  EXPECT_THAT(kept({text("a"), text("a")}, {text("a"), text("a")}), ElementsAre(0, 1));
}

TEST(KeptParts, NothingIsKeptOfNothing) {
  EXPECT_THAT(kept({}, {text("a")}), ElementsAre(isNew));
  EXPECT_THAT(kept({text("a")}, {}), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
