#include "catalogue/maker_data.h"

#include "shop_catalogue/shop_fixture.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::ElementsAre;
using testing::HasSubstr;

std::string RefusalOf(const std::string& text) {
  const auto read = MakerData::Read(text, "clampdevice.json");
  return read ? "" : read.fault().Message();
}

TEST(MakerData, ReadsTheExampleOfTheDesign) {
  const auto data = MakerData::Read(R"({"version":1,"devices":{"Chuck 160":{"clamp_outside":[20,160],
      "clamp_inside":[60,140],"through_hole":45,"stroke":6,"max_speed":4500,"max_force":60,"max_mass":25,
      "max_bar_length":1200,"order":"..","link":".."}}})",
                                    "clampdevice.json");
  ASSERT_TRUE(data) << data.fault().Message();
  EXPECT_EQ(MakerText((*data->Find("Chuck 160"))["clamp_outside"]), "20..160");
  EXPECT_EQ(data->Find("Chuck 210"), nullptr);
}

TEST(MakerData, RefuseWhatTheSchemaDoesNotHave) {
  EXPECT_THAT(RefusalOf("{}"), HasSubstr("expected an object with the key \"devices\""));
  EXPECT_THAT(RefusalOf(R"({"version":2,"devices":{}})"), HasSubstr("version: expected 1, found 2"));
  EXPECT_THAT(RefusalOf(R"({"devices":{"A":{"max_sped":1}}})"),
              HasSubstr("'A': the key 'max_sped' is not one of maker data; did you mean 'max_speed'?"));
  EXPECT_THAT(RefusalOf(R"({"devices":{"A":{"stroke":-1}}})"), HasSubstr("'A': stroke: expected a number"));
  EXPECT_THAT(RefusalOf(R"({"devices":{"A":{"clamp_inside":[9,3]}}})"), HasSubstr("the smaller one first"));
  EXPECT_THAT(RefusalOf(R"({"devices":{"A":{"order":5}}})"), HasSubstr("expected a text"));
  EXPECT_THAT(RefusalOf("{\"devices\":\n{\"A\":"), HasSubstr("clampdevice.json:2"));
}

TEST(MakerData, AreSetFromTexts) {
  MakerData data;
  EXPECT_EQ(data.Text(), "");
  ASSERT_TRUE(data.Set("B", "max_speed", "4500"));
  ASSERT_TRUE(data.Set("A", "clamp_outside", "20..160.5"));
  ASSERT_TRUE(data.Set("A", "note", "on loan"));
  EXPECT_THAT(data.Devices(), ElementsAre("B", "A"));
  EXPECT_EQ(data.Find("A")->dump(), R"({"clamp_outside":[20,160.5],"note":"on loan"})");
  ASSERT_TRUE(data.Set("A", "note", ""));
  ASSERT_TRUE(data.Set("A", "clamp_outside", ""));
  EXPECT_EQ(data.Find("A"), nullptr) << "nothing is left of it";
  EXPECT_EQ(MakerJson::parse(data.Text()).dump(), R"({"version":1,"devices":{"B":{"max_speed":4500}}})");
}

TEST(MakerData, RefuseTextsThatAreNotValues) {
  MakerData data;
  for (const auto& [key, text] : std::vector<std::pair<std::string, std::string>>{{"max_speed", "fast"},
                                                                                  {"max_speed", "-1"},
                                                                                  {"clamp_outside", "20"},
                                                                                  {"clamp_outside", "9..3"},
                                                                                  {"speed", "1"}})
    EXPECT_FALSE(data.Set("A", key, text)) << key << text;
  EXPECT_EQ(data.Text(), "");
}

/// The type of the values of a key in the schema.
const char* TypeOf(MakerValue value) {
  switch (value) {
    case MakerValue::kNumber: return "number";
    case MakerValue::kRange: return "array";
    case MakerValue::kText: return "string";
  }
  return "";
}

TEST(MakerData, AreThoseOfTheSchemaFile) {
  const auto schema = MakerJson::parse(ReadBytes(VANZET_SOURCE_DIR "/share/schema/clampdevice.schema.json"));
  const MakerJson& keys = schema["properties"]["devices"]["additionalProperties"]["properties"];
  EXPECT_EQ(keys.size(), MakerKeys().size());
  for (const MakerKey& key : MakerKeys()) {
    ASSERT_TRUE(keys.contains(key.key)) << key.key;
    const MakerJson& row = keys[key.key].contains("$ref") ? schema["$defs"]["range"] : keys[key.key];
    EXPECT_EQ(row["type"], TypeOf(key.value)) << key.key;
    const std::string unit = *key.unit == '\0' ? "" : ", " + std::string(key.unit);
    EXPECT_EQ(keys[key.key]["description"], key.name + unit);
  }
}

}  // namespace
}  // namespace vanzet::test
