#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "nowplaying/AdapterJson.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

AdapterText text(std::string content) {
  return AdapterText(std::move(content));
}

AdapterState payloadOf(const std::string& line) {
  const std::optional<AdapterEnvelope> envelope = AdapterJson::envelope(line);
  EXPECT_TRUE(envelope.has_value()) << line;
  return envelope ? envelope->payload : AdapterState{};
}

AdapterValue valueOf(const std::string& json) {
  const std::optional<AdapterState> state = AdapterJson::object("{\"key\":" + json + "}");
  EXPECT_TRUE(state.has_value()) << json;
  return state ? state->at("key") : AdapterValue{};
}

TEST(AdapterJson, TellsAFullStateFromADifference) {
  EXPECT_FALSE(AdapterJson::envelope(R"({"payload":{}})")->isDiff);
  EXPECT_FALSE(AdapterJson::envelope(R"({"payload":{},"diff":false})")->isDiff);
  EXPECT_TRUE(AdapterJson::envelope(R"({"payload":{},"diff":true})")->isDiff);
  EXPECT_TRUE(AdapterJson::envelope(R"({"diff":true,"payload":{}})")->isDiff);
}

TEST(AdapterJson, TakesADifferenceMarkOfAnotherTypeForNone) {
  for (const char* mark : {"1", "\"true\"", "null", "[true]", R"({"diff":true})"}) {
    const auto envelope =
        AdapterJson::envelope(std::string(R"({"payload":{"a":true},"diff":)") + mark + "}");
    ASSERT_TRUE(envelope.has_value()) << mark;
    EXPECT_FALSE(envelope->isDiff) << mark;
    EXPECT_EQ(envelope->payload.size(), 1U) << mark;
  }
}

TEST(AdapterJson, HasNoEnvelopeWithoutAPayloadThatIsAnObject) {
  for (const char* line :
       {"{}", R"({"diff":true})", R"({"payload":null})", R"({"payload":[]})", R"({"payload":"x"})",
        R"({"payload":1})", R"({"Payload":{}})", R"({"payload":{"a":1},"payload":2})"}) {
    EXPECT_EQ(AdapterJson::envelope(line), std::nullopt) << line;
  }
}

TEST(AdapterJson, ReadsEveryKindOfValue) {
  EXPECT_EQ(valueOf("null"), AdapterValue(nullptr));
  EXPECT_EQ(valueOf("true"), AdapterValue(true));
  EXPECT_EQ(valueOf("false"), AdapterValue(false));
  EXPECT_EQ(valueOf("0"), AdapterValue(0.0));
  EXPECT_EQ(valueOf("-12.5e1"), AdapterValue(-125.0));
  EXPECT_EQ(valueOf("12345678901234567890123"), AdapterValue(12345678901234567890123.0));
  EXPECT_EQ(valueOf("\"\""), AdapterValue(text("")));
  EXPECT_EQ(valueOf("\"a b\"  "), AdapterValue(text("a b")));
  EXPECT_EQ(valueOf("[1, {\"a\":null}]"), AdapterValue(AdapterNested{text("[1, {\"a\":null}]")}));
  EXPECT_EQ(valueOf("{\"a\":[true]}"), AdapterValue(AdapterNested{text("{\"a\":[true]}")}));
}

TEST(AdapterJson, ReadsEscapesAndUnicode) {
  EXPECT_EQ(valueOf(R"("\"\\\/\b\f\n\r\té😀")"),
            AdapterValue(text("\"\\/\b\f\n\r\t\xC3\xA9\xF0\x9F\x98\x80")));
  EXPECT_EQ(valueOf("\"\xC3\xA9\""), AdapterValue(text("\xC3\xA9")));
  EXPECT_THAT(payloadOf(R"({"payload":{"title":1}})"),
              ElementsAre(Pair("title", AdapterValue(1.0))));
}

TEST(AdapterJson, ReadsLongTextsWithAndWithoutEscapes) {
  const std::string plain(100000, 'A');
  EXPECT_EQ(valueOf('"' + plain + "\" "), AdapterValue(text(plain)));
  EXPECT_EQ(valueOf('"' + plain + "\\/\""), AdapterValue(text(plain + '/')));
  EXPECT_EQ(valueOf('"' + plain + "\\\"\""), AdapterValue(text(plain + '"')));
}

TEST(AdapterJson, LeavesALongTextWhereItWasRead) {
  std::string line = R"({"payload":{"artworkData":")" + std::string(100000, 'A') + "\"}}";
  line.reserve(line.size() + AdapterJson::padding);
  const char* const begin = line.data();
  const char* const end = begin + line.size();
  const auto envelope = AdapterJson::envelope(std::move(line));
  ASSERT_TRUE(envelope.has_value());
  const auto& artwork = std::get<AdapterText>(envelope->payload.at("artworkData"));
  EXPECT_GT(artwork.view().data(), begin);
  EXPECT_LT(artwork.view().data(), end);
}

TEST(AdapterJson, KeepsNothingOfALineButItsLongTexts) {
  std::string line =
      R"({"payload":{"title":"short","artworkData":")" + std::string(100000, 'A') + "\"}}";
  line.reserve(line.size() + AdapterJson::padding);
  const char* const begin = line.data();
  const char* const end = begin + line.size();
  const auto envelope = AdapterJson::envelope(std::move(line));
  ASSERT_TRUE(envelope.has_value());
  const auto& title = std::get<AdapterText>(envelope->payload.at("title"));
  EXPECT_TRUE(title.view().data() < begin || title.view().data() >= end);
}

TEST(AdapterJson, TakesTheLastOfKeysThatRepeat) {
  EXPECT_THAT(payloadOf(R"({"payload":{"a":1,"b":2,"a":3}})"),
              ElementsAre(Pair("a", AdapterValue(3.0)), Pair("b", AdapterValue(2.0))));
}

TEST(AdapterJson, ReadsBlanksAroundTheObject) {
  EXPECT_THAT(AdapterJson::object(" \t{ } \r\n"), testing::Optional(IsEmpty()));
}

TEST(AdapterJson, RefusesWhatIsNoJsonAtAnyPlace) {
  for (const char* wrong : {"",
                            " ",
                            "x",
                            "nul",
                            "{",
                            "}",
                            "[]",
                            "\"payload\"",
                            "1",
                            "null",
                            "{\"a\"}",
                            "{\"a\":}",
                            "{\"a\":1,}",
                            "{\"a\":1}}",
                            "{\"a\":1} x",
                            "{\"a\":1}{\"a\":1}",
                            "{'a':1}",
                            "{a:1}",
                            "{\"a\":01}",
                            "{\"a\":1.}",
                            "{\"a\":+1}",
                            "{\"a\":NaN}",
                            "{\"a\":tru}",
                            "{\"a\":truex}",
                            "{\"a\":nulll}",
                            "{\"a\":[1,]}",
                            "{\"a\":[1 2]}",
                            "{\"a\":{\"b\":}}",
                            "{\"a\":[01]}",
                            "{\"a\":[\"\\x\"]}",
                            "{\"a\":\"\\x\"}",
                            "{\"a\":\"\\ud800\"}",
                            "{\"a\":\"unclosed}",
                            "{\"a\":\"\x01\"}",
                            "{\"a\":\"\xFF\"}",
                            "{\"a\":\"\xC3\"}",
                            "{\"a\":1 \"b\":2}",
                            "{\"a\" 1}",
                            "{\"a\":1e999}",
                            "{\"a\":[}",
                            "{\"a\":[1}",
                            "{\"\\x\":1}"}) {
    EXPECT_EQ(AdapterJson::object(wrong), std::nullopt) << wrong;
    const std::string around = std::string(R"({"payload":)") + wrong + "}";
    EXPECT_FALSE(AdapterJson::envelope(around).has_value()) << around;
    const std::string beside = std::string(R"({"payload":{},"other":)") + wrong + "x}";
    EXPECT_FALSE(AdapterJson::envelope(beside).has_value()) << beside;
  }
}

TEST(AdapterJson, RefusesALineThatIsCutOffAnywhere) {
  const std::string line =
      R"({"payload":{"title":"a\"bé","playing":true,"duration":1.5e2,"x":[null,{}]},"diff":true})";
  ASSERT_TRUE(AdapterJson::envelope(line).has_value());
  for (std::size_t length = 0; length < line.size(); ++length) {
    EXPECT_EQ(AdapterJson::envelope(line.substr(0, length)), std::nullopt) << length;
  }
}

TEST(AdapterJson, RefusesWhatIsNestedBeyondReason) {
  const std::string deep = std::string(100000, '[') + std::string(100000, ']');
  EXPECT_EQ(AdapterJson::object("{\"a\":" + deep + "}"), std::nullopt);
  EXPECT_EQ(AdapterJson::envelope("{\"payload\":{},\"a\":" + deep + "}"), std::nullopt);
}

TEST(AdapterJson, SurvivesAnyByteInAnyPlace) {
  const std::string line = R"({"payload":{"title":"ab","playing":true,"n":-1.5,"x":[null]}})";
  std::size_t accepted = 0;
  for (std::size_t place = 0; place < line.size(); ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string damaged = line;
      damaged[place] = static_cast<char>(byte);
      if (AdapterJson::envelope(std::move(damaged))) ++accepted;
    }
  }
  EXPECT_GT(accepted, 0U);
}

}  // namespace

}  // namespace talmo::test
