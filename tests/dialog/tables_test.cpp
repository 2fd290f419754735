#include <set>

#include "devices/device_types.h"
#include "dialog/device_kinds.h"
#include "dialog/device_letters.h"
#include "dialog/dialog_fixture.h"
#include "dialog/tree_nodes.h"

namespace vanzet::test {
namespace {

using nlohmann::json;

/// A control and the message that it shows.
struct Shown {
  int node;
  int control;
  int message;
};

class Tables : public DialogTest {
 protected:
  Tables() { world.SetMachine({.sub = true, .tail = true, .lun = true}); }

  /// A state of each page, by a node that shows it.
  std::map<int, json> Pages() {
    const int nodes[] = {1, 3, 4, 16, 19, 20, 21, 28, 29, 34, 36};
    std::map<int, json> pages;
    std::string script;
    for (const int node : nodes) script += "select " + std::to_string(node) + "\nstate\n";
    const Ran ran = Run(script);
    for (std::size_t i = 0; i < ran.states.size(); ++i) pages[nodes[i]] = ran.states[i];
    return pages;
  }
};

TEST_F(Tables, NoIdIsTwiceInAWindow) {
  // A parser keeps one of two equal keys, so the text is looked at.
  for (const char* node : {"3", "16", "19", "20", "21", "28", "29", "34", "36"}) {
    const Ran ran = Run(std::string("select ") + node + "\nstate\n");
    const std::string& line = ran.transcript.at(1);
    std::size_t controls = 0;
    for (std::size_t at = line.find("\"kind\":"); at != std::string::npos;
         at = line.find("\"kind\":", at + 1)) {
      ++controls;
    }
    EXPECT_EQ(controls, ran.State()["dialog"].size() + ran.State()["controls"].size()) << node;
    for (const auto& [id, control] : ran.State()["controls"].items()) {
      EXPECT_FALSE(ran.State()["dialog"].contains(id)) << node << ": " << id;
    }
  }
}

TEST_F(Tables, EveryTextThatIsToBeReplacedIsReplaced) {
  for (const auto& [node, state] : Pages()) {
    // The datum's page has words with a star of its own.
    if (node == 34) continue;
    for (const char* part : {"dialog", "controls"}) {
      for (const auto& [id, control] : state[part].items()) {
        const std::string text = control.value("text", "");
        EXPECT_FALSE(text.starts_with("*")) << node << " " << id;
      }
    }
  }
}

TEST_F(Tables, EveryTextIsThatOfItsMessage) {
  constexpr Shown kShown[] = {
      {3, 2154, 743},   {3, 2159, 745},   {3, 2155, 744},   {4, 2179, 1178},  {4, 2141, 1165},
      {16, 2019, 742},  {16, 2015, 724},  {19, 2018, 725},  {19, 2138, 739},  {19, 2016, 724},
      {20, 2132, 726},  {20, 2133, 727},  {20, 2015, 724},  {20, 2145, 1164}, {21, 2156, 406},
      {21, 2145, 1164}, {21, 2122, 1166}, {21, 2117, 1167}, {21, 2015, 724},  {28, 2132, 726},
      {28, 2133, 727},  {28, 2015, 724},  {29, 2156, 406},  {29, 2015, 724},  {34, 2171, 718},
      {34, 2204, 704},  {34, 2202, 1175}, {34, 2205, 1177}, {34, 2208, 710},  {34, 2210, 1176},
      {34, 2212, 1177}, {34, 2015, 724},  {36, 2152, 734},  {36, 2127, 735},
  };
  for (const Shown& shown : kShown) {
    host.translations[shown.message] = "T" + std::to_string(shown.message);
  }
  const auto pages = Pages();
  for (const Shown& shown : kShown) {
    const json& control = pages.at(shown.node)["controls"].at(std::to_string(shown.control));
    EXPECT_EQ(control["text"], "T" + std::to_string(shown.message)) << shown.node << " " << shown.control;
  }
}

TEST_F(Tables, TextsArePutInOnceWhenThePageIsFirstShown) {
  host.TakeCalls();
  Run("");
  EXPECT_THAT(host.TakeCalls("OrvoStrMessage(5, 725,"), testing::IsEmpty());
  Run("select 19\nselect 20\nselect 19\n");
  EXPECT_EQ(host.TakeCalls("OrvoStrMessage(5, 725,").size(), 1U);
}

TEST_F(Tables, HeadersNameTheSpindleAndThePage) {
  host.translations = {{704, "Haupt"}, {710, "Gegen"}, {715, "a"}, {717, "b"},
                       {1160, "c"},    {1172, "d"},    {1173, "e"}};
  const auto header = [&](int node) {
    return Run("select " + std::to_string(node) + "\nstate\n").TextOf(2171);
  };
  const std::map<int, const char*> headers = {
      {19, "Haupt: a"}, {20, "Haupt: b"}, {21, "Haupt: c"}, {23, "Gegen: a"}, {24, "Gegen: b"},
      {25, "Gegen: c"}, {28, "Haupt: d"}, {29, "Haupt: e"}, {31, "Gegen: d"}, {32, "Gegen: e"}};
  for (const auto& [node, text] : headers) EXPECT_EQ(header(node), text) << node;
}

TEST(DeviceLetterTable, HasTheTenLettersWithControlsOfTheirOwn) {
  std::string letters;
  std::set<std::int32_t> edits;
  std::set<std::int32_t> labels;
  std::size_t fields = 0;
  for (const dialog::DeviceLetter& letter : dialog::DeviceLetters()) {
    letters += letter.letter;
    edits.insert(letter.edit);
    labels.insert({letter.labelOnClampElem, letter.labelOnNew});
    EXPECT_EQ(dialog::DeviceFields()[fields++].control, letter.edit);
  }
  EXPECT_EQ(letters, "ABCDEFGHIJ");
  EXPECT_EQ(edits.size(), 10U);
  EXPECT_EQ(labels.size(), 20U);
  EXPECT_EQ(dialog::DeviceFields().size(), 10U);
}

TEST(DeviceLetterTable, NeedsNoValueThatCannotBeGiven) {
  for (const dialog::DeviceLetter& letter : dialog::DeviceLetters()) {
    for (std::int32_t type = 0; type < 120; ++type) {
      EXPECT_TRUE(!HasType(letter.needed, type) || HasType(letter.open, type)) << letter.letter << type;
    }
  }
}

TEST(DeviceLetterTable, OpensWhatTheTypeKeeps) {
  for (const DeviceType& type : DeviceTypes()) {
    if (type.code > 14) continue;
    for (const dialog::DeviceLetter& letter : dialog::DeviceLetters()) {
      EXPECT_EQ(HasType(letter.open, type.code), type.keeps.find(letter.letter) != std::string_view::npos)
          << type.code << letter.letter;
    }
  }
}

TEST(DeviceLetterTable, OpensOneValueOfOneOwnDevice) {
  for (const std::int32_t type : {103, 104, 105, 106, 107, 109, 110, 111, 112, 113, 115}) {
    for (const dialog::DeviceLetter& letter : dialog::DeviceLetters()) {
      EXPECT_EQ(HasType(letter.open, type), type == 115 && letter.letter == 'A') << type << letter.letter;
    }
  }
}

TEST(DevicePictures, AreThoseOfTheTypes) {
  for (const DeviceType& type : DeviceTypes())
    EXPECT_EQ(dialog::DevicePicture(type.code), type.picture) << type.code;
  for (const std::int32_t older : {109, 110, 111, 112, 113}) {
    EXPECT_EQ(dialog::DevicePicture(older), dialog::DevicePicture(older - 6));
  }
  for (const std::int32_t none : {0, 15, 102, 108, 114, 116}) EXPECT_EQ(dialog::DevicePicture(none), 0);
}

TEST(DeviceKindTable, ComprisesEachTypeOnce) {
  for (std::int32_t type = 1; type <= 115; ++type) {
    int kinds = 0;
    for (const std::int32_t kind : {1, 2, 3, 4, 5, 13}) kinds += dialog::IsOfKind(kind, type) ? 1 : 0;
    const bool isDevice = type <= 14 || IsOwnVdmType(type);
    EXPECT_EQ(kinds, isDevice ? 1 : 0) << type;
  }
}

TEST(DeviceKindTable, SetsOptionsForAllThatCarryNoJawOfTheirOwn) {
  for (const std::int32_t kind : {2, 3, 4}) {
    for (std::int32_t type = 1; type <= 115; ++type) {
      if (!dialog::IsOfKind(kind, type)) continue;
      const dialog::ClampOptions* const options = dialog::FixedClampOptions(type);
      ASSERT_NE(options, nullptr) << type;
      EXPECT_EQ(options->isInner, kind == 3) << type;
    }
  }
  for (const std::int32_t type : {1, 5, 12, 13, 14, 103, 104, 109, 110, 115}) {
    EXPECT_EQ(dialog::FixedClampOptions(type), nullptr) << type;
  }
}

}  // namespace
}  // namespace vanzet::test
