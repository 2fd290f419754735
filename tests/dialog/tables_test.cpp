#include <algorithm>
#include <set>

#include "devices/kinds.h"
#include "dialog/device_letters.h"
#include "dialog/dialog_fixture.h"
#include "dialog/tree_nodes.h"
#include "host/message_ids.h"
#include "view/ids.h"

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
      {node::kChuckMain, control::kSelectParametric, message::kSelectParametric},
      {node::kChuckMain, control::kPathLabel, message::kOwnPath},
      {node::kChuckMain, control::kSelectOwn, message::kSelectOwn},
      {node::kJawMain, control::kJawsLabel, message::kJawCount},
      {node::kJawMain, control::kInnerChucking, message::kInnerChucking},
      {node::kBezel, control::kUseBezel, message::kUseBezel},
      {node::kBezel, control::kSelect, message::kSelect},
      {node::kBilletCylindricMain, control::kPickSolid, message::kValuesFromSolid},
      {node::kBilletCylindricMain, control::kHideBillet, message::kHideBillet},
      {node::kBilletCylindricMain, control::kSelectCylinder, message::kSelect},
      {node::kBilletFromFigureMain, control::kFigureOutsideLabel, message::kFigureOutside},
      {node::kBilletFromFigureMain, control::kFigureInsideLabel, message::kFigureInside},
      {node::kBilletFromFigureMain, control::kSelect, message::kSelect},
      {node::kBilletFromFigureMain, control::kPartLengthLabel, message::kPartLength},
      {node::kBilletFromSolidMain, control::kSolidLabel, message::kSolid},
      {node::kBilletFromSolidMain, control::kPartLengthLabel, message::kPartLength},
      {node::kBilletFromSolidMain, control::kClampDiameterLabel, message::kClampDiameter},
      {node::kBilletFromSolidMain, control::kAngleLabel, message::kAngle},
      {node::kBilletFromSolidMain, control::kSelect, message::kSelect},
      {node::kFinishPartFromFigureMain, control::kFigureOutsideLabel, message::kFigureOutside},
      {node::kFinishPartFromFigureMain, control::kFigureInsideLabel, message::kFigureInside},
      {node::kFinishPartFromFigureMain, control::kSelect, message::kSelect},
      {node::kFinishPartFromSolidMain, control::kSolidLabel, message::kSolid},
      {node::kFinishPartFromSolidMain, control::kSelect, message::kSelect},
      {node::kDatum, control::kHeader, message::kRootDatum},
      {node::kDatum, control::kMainTitle, message::kMainSpindle},
      {node::kDatum, control::kClampingOutMainLabel, message::kClampingOutMain},
      {node::kDatum, control::kOriginMainLabel, message::kOrigin},
      {node::kDatum, control::kSubTitle, message::kSubSpindle},
      {node::kDatum, control::kClampingOutSubLabel, message::kClampingOutSub},
      {node::kDatum, control::kOriginSubLabel, message::kOrigin},
      {node::kDatum, control::kSelect, message::kSelect},
      {node::kNewChuck, control::kSaveDevice, message::kSave},
      {node::kNewChuck, control::kDeleteDevice, message::kDelete},
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
  host.translations = {{message::kMainSpindle, "Haupt"},    {message::kSubSpindle, "Gegen"},
                       {message::kBilletCylindric, "a"},    {message::kBilletFromGeometry, "b"},
                       {message::kBilletFromSolid, "c"},    {message::kFinishPartFromGeometry, "d"},
                       {message::kFinishPartFromSolid, "e"}};
  const auto header = [&](int node) {
    return Run("select " + std::to_string(node) + "\nstate\n").TextOf(control::kHeader);
  };
  const std::map<int, const char*> headers = {
      {19, "Haupt: a"}, {20, "Haupt: b"}, {21, "Haupt: c"}, {23, "Gegen: a"}, {24, "Gegen: b"},
      {25, "Gegen: c"}, {28, "Haupt: d"}, {29, "Haupt: e"}, {31, "Gegen: d"}, {32, "Gegen: e"}};
  for (const auto& [node, text] : headers) EXPECT_EQ(header(node), text) << node;
}

TEST(TreeNodeTable, OffersEachTypeOfTheCatalogueAsANewDeviceOnce) {
  for (const devices::Kind* const kind : devices::Kinds()) {
    for (const devices::Device& device : kind->devices) {
      const auto nodes = std::ranges::count_if(dialog::TreeNodes(), [&](const dialog::TreeNodeRow& row) {
        return row.page == dialog::PageId::kClampElemNew && row.deviceType == device.code;
      });
      EXPECT_EQ(nodes, 1) << device.code;
    }
  }
}

TEST(TreeNodeTable, HasANodeOfADeviceForEachKind) {
  for (const devices::Kind* const kind : devices::Kinds()) {
    EXPECT_TRUE(std::ranges::any_of(dialog::TreeNodes(), [&](const dialog::TreeNodeRow& row) {
      return row.page == dialog::PageId::kClampElem && row.deviceType == kind->First();
    })) << kind->word;
  }
}

TEST(DeviceLetterTable, HasTheTenLettersWithControlsOfTheirOwn) {
  std::string letters;
  std::set<std::int32_t> edits;
  std::set<std::int32_t> labels;
  std::size_t fields = 0;
  for (const dialog::LetterControls& letter : dialog::AllLetterControls()) {
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

TEST(DeviceLetterTable, EnablesTheOpenLettersOfAType) {
  for (const devices::Device* const device : devices::Devices()) {
    std::vector<dialog::ControlTemplate> rows;
    for (const dialog::LetterControls& letter : dialog::AllLetterControls()) {
      rows.push_back({.id = letter.edit, .kind = view::ControlKind::kEdit});
      rows.push_back({.id = letter.labelOnNew, .kind = view::ControlKind::kLabel});
    }
    dialog::Controls controls(rows);
    EnableLetters(controls, &dialog::LetterControls::labelOnNew, device->code);
    for (const dialog::LetterControls& letter : dialog::AllLetterControls()) {
      const devices::Letter* const found = devices::FindLetter(device->code, letter.letter);
      const bool isOpen = found != nullptr && found->entry != devices::Entry::kClosed;
      EXPECT_EQ(controls.Of(letter.edit).isEnabled, isOpen) << device->code << letter.letter;
      EXPECT_EQ(controls.Of(letter.labelOnNew).isEnabled, isOpen) << device->code << letter.letter;
    }
  }
}

}  // namespace
}  // namespace vanzet::test
