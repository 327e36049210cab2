#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/structure/MacDeclarations.h"
#include "tests/unit/structure/ThisTree.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> unusedOf(const std::string& declarations, const std::string& source) {
  return unusedDeclarations(
      {{"tests/macos/declarations/Kit/Kit.h", declarations}, {"platform/macos/Source.mm", source}});
}

TEST(MacDeclarations, OfThisTreeAreAllInUse) {
  EXPECT_THAT(unusedDeclarations(thisTree()), IsEmpty());
}

TEST(MacDeclarations, FindsAnUnusedFunctionAndConstant) {
  const std::string declarations =
      "KIT_EXPORT void kitRun(KitRef kit, void (^block)(int)) API_AVAILABLE(macos(10.6));\n"
      "KIT_EXPORT const CFStringRef kKitName;\n"
      "static const int kitLimit = 3;\n";
  EXPECT_THAT(unusedOf(declarations, ""),
              ElementsAre("Kit.h: kitRun", "Kit.h: kKitName", "Kit.h: kitLimit"));
  EXPECT_THAT(unusedOf(declarations, "// kitRun\nkitLimit"),
              ElementsAre("Kit.h: kitRun", "Kit.h: kKitName"));
  EXPECT_THAT(unusedOf(declarations, "kitRun(kKitName, kitLimit)"), IsEmpty());
}

TEST(MacDeclarations, FindsAnUnusedMethodByItsWholeSelector) {
  const std::string declarations =
      "@interface Kit : NSObject\n"
      "+ (nullable instancetype)kit;\n"
      "- (void)runWith:(void (^_Nullable)(Kit*))block\n"
      "          until:(NSDate*)date API_AVAILABLE(macos(10.15));\n"
      "@end\n";
  EXPECT_THAT(unusedOf(declarations, "[Kit kit]"), ElementsAre("Kit.h: runWith:until:"));
  EXPECT_THAT(unusedOf(declarations, "[Kit.kit runWith:nil]"),
              ElementsAre("Kit.h: runWith:until:"));
  EXPECT_THAT(unusedOf(declarations, "[Kit.kit runWith:nil until:end]"), IsEmpty());
}

TEST(MacDeclarations, FindsAnUnusedProperty) {
  const std::string declarations =
      "@interface Kit : NSObject\n"
      "@property(getter=isOpen) BOOL open API_AVAILABLE(macos(10.10));\n"
      "@property(nullable, copy) void (^handler)(Kit*) API_AVAILABLE(macos(10.7));\n"
      "@property(readonly) const char* text NS_RETURNS_INNER_POINTER;\n"
      "@end\n";
  EXPECT_THAT(unusedOf(declarations, "Kit"),
              ElementsAre("Kit.h: open", "Kit.h: handler", "Kit.h: text"));
  EXPECT_THAT(unusedOf(declarations, "Kit* k; k.isOpen; [k setHandler:nil]; k.text"), IsEmpty());
}

TEST(MacDeclarations, FindsAnUnusedClassButNotOneThatAnotherDeclarationNames) {
  const std::string kit = "@interface Kit : NSObject\n@end\n";
  EXPECT_THAT(unusedOf(kit, ""), ElementsAre("Kit.h: Kit"));
  EXPECT_THAT(unusedOf(kit + "KIT_EXPORT void kitRun(Kit* kit);\n", "kitRun"), IsEmpty());
}

TEST(MacDeclarations, TakesMacrosAndTheLanguageForUsers) {
  EXPECT_THAT(unusedOf("KIT_EXPORT void _kit_impl(int value);\n"
                       "#define kit_run(value) \\\n"
                       "  _kit_impl(value)\n",
                       ""),
              IsEmpty());
  EXPECT_THAT(unusedOf("@interface Kit : NSObject\n"
                       "- (id)objectAtIndexedSubscript:(NSUInteger)index;\n"
                       "@end\n",
                       "Kit"),
              IsEmpty());
}

}  // namespace
}  // namespace talmo::test
