#include <cstdint>

#include <gtest/gtest.h>

#include "platform/macos/applications/DescriptorContent.h"
#include "platform/macos/applications/ScriptingReturn.h"
#include "platform/macos/FourCharacterCode.h"

namespace talmo::test {
namespace {

TEST(FourCharacterCode, HasTheFirstCharacterInItsHighestByte) {
  EXPECT_EQ(fourCharacterCode("kPSP"), 0x6B505350U);
  EXPECT_EQ(fourCharacterCode("****"), 0x2A2A2A2AU);
  EXPECT_EQ(fourCharacterCode("\xFF\xFE\xFD\xFC"), 0xFFFEFDFCU);
}

TEST(ScriptingReturn, IsAnObjectWhateverTheClass) {
  EXPECT_EQ(scriptingReturn("@"), ScriptingReturn::object);
  EXPECT_EQ(scriptingReturn("@\"NSString\""), ScriptingReturn::object);
}

TEST(ScriptingReturn, IsANumberForEveryWidthAndSign) {
  for (const char* encoding : {"c", "C", "s", "S", "i", "I", "l", "L", "q", "Q", "B"}) {
    EXPECT_EQ(scriptingReturn(encoding), ScriptingReturn::number) << encoding;
  }
}

TEST(ScriptingReturn, LooksPastTheQualifiers) {
  EXPECT_EQ(scriptingReturn("Vv"), ScriptingReturn::other);
  EXPECT_EQ(scriptingReturn("r@"), ScriptingReturn::object);
  EXPECT_EQ(scriptingReturn("rNI"), ScriptingReturn::number);
}

TEST(ScriptingReturn, IsNeitherForWhatNoValueHolds) {
  for (const char* encoding :
       {"v", "d", "f", "#", ":", "*", "^i", "{CGSize=dd}", "[4c]", "?", "", "r"}) {
    EXPECT_EQ(scriptingReturn(encoding), ScriptingReturn::other) << encoding;
  }
}

TEST(DescriptorContent, IsTextInEveryEncoding) {
  for (const std::uint32_t type : {0x75747874U, 0x75743136U, 0x75746638U, 0x54455854U}) {
    EXPECT_EQ(descriptorContent(type), DescriptorContent::text) << type;
  }
}

TEST(DescriptorContent, TellsEnumeratorsFromTypes) {
  EXPECT_EQ(descriptorContent(0x656E756DU), DescriptorContent::enumerator);  // 'enum'
  EXPECT_EQ(descriptorContent(0x74797065U), DescriptorContent::type);        // 'type'
}

TEST(DescriptorContent, OfEverythingElseAreItsBytes) {
  for (const std::uint32_t type : {fourCharacterCode("PNGf"), fourCharacterCode("JPEG"),
                                   fourCharacterCode("tdta"), fourCharacterCode("PICT")}) {
    EXPECT_EQ(descriptorContent(type), DescriptorContent::bytes) << type;
  }
  EXPECT_EQ(descriptorContent(0), DescriptorContent::bytes);
}

}  // namespace
}  // namespace talmo::test
