#include "define/schema.h"

#include <filesystem>
#include <set>

#include "define/form_fixture.h"
#include "define/schema_check.h"
#include "define/tables.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

using define::Json;
using testing::HasSubstr;

class FormSchema : public FormTest {
 protected:
  std::string Refused(const std::string& form) {
    return RefusedBySchema(schema, *define::ReadJson(form, "form"));
  }

  /// The keys that the check knows in the object at the place of "@".
  std::set<std::string> KeysOfCheck(std::string form) {
    form.replace(form.find('@'), 1, R"("unknown_key_of_nobody": 1)");
    const auto lines = RefusedOf(form);
    const std::string mark = "unknown key; known are ";
    for (const std::string& line : lines) {
      if (const auto at = line.find(mark); at != std::string::npos)
        return Split(line.substr(at + mark.size()));
    }
    ADD_FAILURE() << form << " has " << testing::PrintToString(lines);
    return {};
  }

  static std::set<std::string> Split(const std::string& list) {
    std::set<std::string> words;
    for (std::size_t begin = 0; begin < list.size();) {
      const std::size_t end = std::min(list.find(", ", begin), list.size());
      words.insert(list.substr(begin, end - begin));
      begin = end + 2;
    }
    return words;
  }

  static std::set<std::string> KeysOf(const Json& object) {
    std::set<std::string> keys;
    for (const auto& [key, value] : object["properties"].items()) keys.insert(key);
    return keys;
  }

  const Json schema = define::FormSchema();
  const Json& defs = schema["$defs"];
};

std::string OfSpur(const std::string& keys) {
  return R"({"spurs": [{"spur": 0, )" + keys + "}]}";
}

TEST_F(FormSchema, HasTheKeysThatTheCheckKnowsAndNoOthers) {
  EXPECT_EQ(KeysOf(schema), KeysOfCheck(R"({"spurs": [{"spur": 0}], @})"));
  EXPECT_EQ(KeysOf(defs["spur"]), KeysOfCheck(OfSpur("@")));
  EXPECT_EQ(KeysOf(defs["spur"]["properties"]["datum"]), KeysOfCheck(OfSpur(R"("datum": {@})")));
  for (const std::string spindle : {"main", "sub"}) {
    EXPECT_EQ(KeysOf(defs[spindle]), KeysOfCheck(OfSpur('"' + spindle + "\": {@}")));
    EXPECT_EQ(KeysOf(defs["spur"]["properties"]["datum"]["properties"][spindle]),
              KeysOfCheck(OfSpur("\"datum\": {\"" + spindle + "\": {@}}")));
  }
}

TEST_F(FormSchema, HasTheKeysOfEveryKindOfPart) {
  for (const std::string part : {"billet", "finished_part"}) {
    const Json& kinds = defs["main"]["properties"][part]["oneOf"];
    ASSERT_FALSE(kinds.empty());
    for (const Json& kind : kinds) {
      const std::string word = kind["properties"]["kind"]["const"];
      EXPECT_EQ(KeysOf(kind),
                KeysOfCheck(OfSpur("\"main\": {\"" + part + R"(": {"kind": ")" + word + "\", @}}")));
    }
  }
  const Json& ofSub = defs["sub"]["properties"]["billet"]["oneOf"][0]["properties"];
  EXPECT_FALSE(ofSub.contains("bar_length"));
}

/// A form with a device of that row, with a chuck for a jaw to be on.
std::string OfDevice(const define::DeviceRow& row, const std::string& keys) {
  const std::string device = '"' + std::string(row.Key()) + R"(": {"name": "New", )" + keys + "}";
  if (row.Key() == "center") return OfSpur(device);
  const std::string chuck = row.Key() == "jaw" ? R"("chuck": {"name": "Chuck 160"}, )" : "";
  return OfSpur("\"main\": {" + chuck + device + "}");
}

TEST_F(FormSchema, HasTheKeysAndLettersOfEveryDevice) {
  std::vector<define::DeviceRow> rows = {define::JawRow(), define::CenterRow()};
  rows.insert(rows.end(), define::ClampRows().begin(), define::ClampRows().end());
  for (const define::DeviceRow& row : rows) {
    EXPECT_EQ(KeysOf(defs[std::string(row.Key())]), KeysOfCheck(OfDevice(row, "@")));
    for (const devices::Device& device : row.kind->devices) {
      Json letters;
      for (const devices::Letter& each : device.letters)
        letters[std::string(1, each.letter)] = ValueOf(device.example, each.letter);
      const std::string shape =
          row.HasShapes() ? "\"shape\": " + std::to_string(row.kind->ShapeOf(device.code)) + ", " : "";
      const std::string form = OfDevice(row, shape + "\"letters\": " + letters.dump());
      EXPECT_EQ(Refused(form), "") << form;
      EXPECT_TRUE(RefusedOf(form).empty()) << form;
      for (char letter = 'A'; letter <= 'J'; ++letter) {
        Json other = letters;
        other[std::string(1, letter)] = -1e8;
        const std::string odd = OfDevice(row, shape + "\"letters\": " + other.dump());
        EXPECT_NE(Refused(odd), "") << odd;
        EXPECT_FALSE(RefusedOf(odd).empty()) << odd;
      }
    }
  }
}

TEST_F(FormSchema, TakesTheExamples) {
  for (const char* const folder : {"/examples/definitions", "/share/schema"}) {
    for (const auto& entry : std::filesystem::directory_iterator(VANZET_SOURCE_DIR + std::string(folder))) {
      if (entry.path().string().ends_with(".schema.json")) continue;
      EXPECT_EQ(Refused(ReadBytes(entry.path())), "") << entry.path();
    }
  }
}

TEST_F(FormSchema, RefusesWhatTheCheckRefusesWithoutLookingElsewhere) {
  const char* const forms[] = {
      "5",
      "{}",
      R"({"spurs": {}})",
      R"({"spurs": []})",
      R"({"spurs": [{}]})",
      R"({"spurs": [{"spur": 0.5}]})",
      R"({"spurs": [{"spur": -1}]})",
      R"({"spurs": [{"spur": 0, "mian": {}}]})",
      R"({"version": 2, "spurs": [{"spur": 0}]})",
      R"({"$schema": 1, "spurs": [{"spur": 0}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": ""}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "a\nb"}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160", "file": "chuck.vdm"}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160", "letters": {"D": 1}}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160", "letters": {"A": -5}}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160", "letters": {"A": 1e8}}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"file": "chuck.vdm", "letters": {"A": 1}}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}, "collet": {"name": "Collet D42"}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"jaw": {"name": "Soft jaw 160"}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "count": 2}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"name": "Soft jaw 160", "shape": 9}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"chuck": {"name": "Chuck 160"}, "jaw": {"file": "jaw.vdm", "shape": 2}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"billet": {"kind": "cilinder"}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"billet": {"kind": "cylinder", "part_length": 5}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"billet": {"kind": "cylinder", "outer_diameter": 0, "part_length": 5}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"billet": {"kind": "cylinder", "outer_diameter": 5, "part_length": -5}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"billet": {"kind": "cylinder", "outer_diameter": 5, "part_length": 5, "shown": 1}}}]})",
      R"({"spurs": [{"spur": 0, "sub": {"billet": {"kind": "cylinder", "outer_diameter": 5, "part_length": 5, "bar_length": 9}}}]})",
      R"({"spurs": [{"spur": 0, "main": {"finished_part": {"kind": "figures", "outside": "ok"}}}]})",
      R"({"spurs": [{"spur": 0, "datum": {"main": {"origin": true}}}]})",
      R"({"spurs": [{"spur": 0, "steady_rest": 1}]})",
  };
  for (const char* const form : forms) {
    EXPECT_NE(Refused(form), "") << form;
    EXPECT_FALSE(RefusedOf(form).empty()) << form;
  }
}

TEST_F(FormSchema, IsTheFileThatEditorsRead) {
  EXPECT_EQ(ReadBytes(VANZET_SOURCE_DIR "/share/schema/definition.schema.json"), schema.dump(2) + "\n")
      << "made by: vanzet define --schema > share/schema/definition.schema.json";
}

}  // namespace
}  // namespace vanzet::test
