#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/structure/IncludeGraph.h"
#include "tests/unit/structure/ThisTree.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(IncludeGraph, OfThisTreeHasNoCycle) {
  const SourceTree tree = thisTree();
  ASSERT_GT(tree.size(), 100U);
  EXPECT_THAT(includeCycles(tree), IsEmpty());
}

TEST(IncludeGraph, OfThisTreeBreaksNoRule) {
  EXPECT_THAT(includeBreaches(thisTree()), IsEmpty());
}

TEST(IncludeGraph, FindsACycleThroughASourceAndItsHeader) {
  EXPECT_THAT(includeCycles({{"app/A.h", "#include \"keys/B.h\"\n"},
                             {"keys/B.h", ""},
                             {"keys/B.cpp", "#include \"keys/B.h\"\n#include \"app/A.h\"\n"}}),
              ElementsAre("app/A -> keys/B -> app/A"));
}

TEST(IncludeGraph, TakesADiamondForNoCycle) {
  EXPECT_THAT(includeCycles({{"app/A.h", "#include \"app/B.h\"\n#include \"app/C.h\"\n"},
                             {"app/B.h", "#include \"app/D.h\"\n"},
                             {"app/C.h", "#include \"app/D.h\"\n"},
                             {"app/D.h", ""}}),
              IsEmpty());
}

TEST(IncludeGraph, FindsEveryBreach) {
  const SourceTree files{
      {"app/A.h", ""},     {"platform/Log.h", ""},     {"support/S.h", ""},
      {"tests/T.h", ""},   {"platform/linux/L.h", ""}, {"platform/macos/M.h", ""},
      {"adapter/A.h", ""}, {"adapter/linux/L.h", ""}};
  const auto breachesOf = [&files](const std::string& path, const std::string& text) {
    SourceTree tree = files;
    tree[path] = text;
    return includeBreaches(tree);
  };
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include \"platform/linux/L.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include <xcb/xcb.h>\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#  include <QString>\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include <unistd.h>\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#import <Foundation/Foundation.h>\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include \"tests/T.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include \"K.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#if defined(__linux__)\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("support/K.cpp", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/K.h", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/K.h", "#include \"platform/linux/L.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/linux/K.h", "#include \"platform/macos/M.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/linux/K.cpp", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/linux/input/main.cpp", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("platform/macos/K.mm", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("adapter/K.cpp", "#include \"app/A.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("adapter/K.cpp", "#include \"platform/linux/L.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("adapter/K.cpp", "#include \"adapter/linux/L.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("adapter/K.cpp", "#ifdef __linux__\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("adapter/linux/K.cpp", "#include \"platform/macos/M.h\"\n"), SizeIs(1));
  EXPECT_THAT(breachesOf("keys/K.cpp", "#include \"adapter/A.h\"\n"), SizeIs(1));

  EXPECT_THAT(breachesOf("keys/K.cpp", "#include \"app/A.h\"\n#include <string>\n"), IsEmpty());
  EXPECT_THAT(breachesOf("adapter/linux/K.cpp",
                         "#include \"adapter/A.h\"\n#include \"platform/linux/L.h\"\n"
                         "#ifdef __linux__\n"),
              IsEmpty());
  EXPECT_THAT(breachesOf("platform/K.h", "#include \"support/S.h\"\n"), IsEmpty());
  EXPECT_THAT(breachesOf("platform/linux/main.cpp", "#include \"app/A.h\"\n"), IsEmpty());
  EXPECT_THAT(breachesOf("platform/macos/AppDelegate.mm", "#include \"app/A.h\"\n"), IsEmpty());
  EXPECT_THAT(breachesOf("platform/macos/K.mm", "#import <AppKit/AppKit.h>\n"), IsEmpty());
  EXPECT_THAT(breachesOf("platform/linux/K.cpp", "#include <unistd.h>\n#ifdef __linux__\n"),
              IsEmpty());
}

}  // namespace
}  // namespace talmo::test
