#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <plist/plist.h>
#include <stdexcept>
#include <string>
#include <variant>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace talmo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Key;
using testing::Not;
using testing::Pair;

using Value = std::variant<std::string, bool>;
using Dictionary = std::map<std::string, Value>;

Value valueOf(plist_t node) {
  if (plist_get_node_type(node) == PLIST_BOOLEAN) {
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return value != 0;
  }
  char* text = nullptr;
  plist_get_string_val(node, &text);
  if (text == nullptr) throw std::runtime_error("neither text nor a truth");
  const std::string value = text;
  std::free(text);
  return value;
}

/// A property list whose values are texts and truths.
Dictionary dictionary(const std::string& path) {
  std::ifstream file(path);
  const std::string xml{std::istreambuf_iterator<char>(file), {}};
  plist_t root = nullptr;
  plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &root);
  if (plist_get_node_type(root) != PLIST_DICT) throw std::runtime_error("no dictionary: " + path);
  Dictionary dictionary;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(root, &iterator);
  for (;;) {
    char* key = nullptr;
    plist_t node = nullptr;
    plist_dict_next_item(root, iterator, &key, &node);
    if (key == nullptr) break;
    dictionary[key] = valueOf(node);
    std::free(key);
  }
  std::free(iterator);
  plist_free(root);
  return dictionary;
}

const std::string files = TALMO_PACKAGING_FILES;
const std::string packaging = TALMO_PACKAGING;

TEST(PropertyListsTest, TheInformationSaysWhatTheApplicationIs) {
  Dictionary information = dictionary(files + "/Info.plist");
  const auto text = [&](const char* key) {
    const std::string value = std::get<std::string>(information.at(key));
    information.erase(key);
    return value;
  };
  // A person reads these two.
  EXPECT_THAT(text("NSAppleEventsUsageDescription"), HasSubstr("media keys"));
  EXPECT_THAT(text("NSHumanReadableCopyright"), HasSubstr("The Talmo authors"));
  EXPECT_EQ(information, (Dictionary{
                             {"CFBundleDevelopmentRegion", "en"},
                             {"CFBundleExecutable", "Talmo"},
                             {"CFBundleIconFile", "AppIcon"},
                             {"CFBundleIdentifier", "nl.brelm.Talmo"},
                             {"CFBundleInfoDictionaryVersion", "6.0"},
                             {"CFBundleName", "Talmo"},
                             {"CFBundlePackageType", "APPL"},
                             {"CFBundleShortVersionString", TALMO_VERSION},
                             {"CFBundleVersion", TALMO_VERSION},
                             {"LSApplicationCategoryType", "public.app-category.utilities"},
                             {"LSMinimumSystemVersion", "14.0"},
                             {"LSUIElement", true},
                             {"NSHighResolutionCapable", true},
                             {"NSPrincipalClass", "NSApplication"},
                         }));
}

TEST(PropertyListsTest, TheUpdateFeedAndItsKeyAreThereWhenTheyAreGiven) {
  Dictionary information = dictionary(files + "/Info.plist");
  EXPECT_THAT(information,
              AllOf(Not(Contains(Key("SUFeedURL"))), Not(Contains(Key("SUPublicEDKey")))));
  information["SUFeedURL"] = "https://a.example/feed?a=1&b=<2";
  information["SUPublicEDKey"] = "a+b/c=";
  EXPECT_EQ(dictionary(files + "/updates/Info.plist"), information);
}

TEST(PropertyListsTest, TheHelperIsAFrameworkOfTheApplication) {
  EXPECT_EQ(dictionary(files + "/MediaRemoteAdapter-Info.plist"),
            (Dictionary{
                {"CFBundleDevelopmentRegion", "en"},
                {"CFBundleExecutable", "MediaRemoteAdapter"},
                {"CFBundleIdentifier", "nl.brelm.Talmo.MediaRemoteAdapter"},
                {"CFBundleInfoDictionaryVersion", "6.0"},
                {"CFBundleName", "MediaRemoteAdapter"},
                {"CFBundlePackageType", "FMWK"},
                {"CFBundleShortVersionString", TALMO_VERSION},
                {"CFBundleVersion", TALMO_VERSION},
                {"LSMinimumSystemVersion", "14.0"},
            }));
}

TEST(PropertyListsTest, TheApplicationMaySendAppleEventsAndNothingMore) {
  const Dictionary least{{"com.apple.security.automation.apple-events", true}};
  EXPECT_EQ(dictionary(packaging + "/Talmo.entitlements"), least);
}

TEST(PropertyListsTest, SignedByNobodyItMayAlsoLoadLibrariesOfNobody) {
  EXPECT_EQ(dictionary(packaging + "/TalmoAdHoc.entitlements"),
            (Dictionary{{"com.apple.security.automation.apple-events", true},
                        {"com.apple.security.cs.disable-library-validation", true}}));
}

}  // namespace
}  // namespace talmo::test
