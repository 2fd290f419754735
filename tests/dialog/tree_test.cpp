#include "dialog/tree_nodes.h"
#include "host/message_ids.h"
#include "view/ids.h"

#include <set>
#include <utility>

#include "dialog/dialog_fixture.h"
#include "host/messages.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using dialog::NeedsOf;
using dialog::TreeNodes;
using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(TreeTable, HasFiftyOneNodesInOrderWithParentsBeforeChildren) {
  std::int32_t id = 0;
  for (const dialog::TreeNodeRow& row : TreeNodes()) {
    EXPECT_EQ(row.id, ++id);
    EXPECT_LT(row.parent, row.id);
  }
  EXPECT_EQ(id, 51);
}

TEST(TreeTable, NeedsOfANodeAreThoseOfItsParentOrMore) {
  for (const dialog::TreeNodeRow& row : TreeNodes()) {
    if (row.parent == 0) continue;
    const NeedsOf parent = dialog::TreeNodeOf(row.parent).needs;
    EXPECT_TRUE(parent == NeedsOf::kNothing || parent == row.needs) << row.id;
  }
}

TEST(TreeTable, HasTheBitmapsOfTheModule) {
  std::set<std::int32_t> bitmaps;
  for (const dialog::TreeNodeRow& row : TreeNodes()) bitmaps.insert({row.bitmap, row.SelectedBitmap()});
  EXPECT_EQ(*bitmaps.begin(), icon::kBezel);
  EXPECT_EQ(*bitmaps.rbegin(), icon::Selected(icon::kDatum));
}

class TreeTest : public DialogTest {
 protected:
  std::vector<int> Ids(const DialogWorld::Machine& machine) {
    world.SetMachine(machine);
    std::vector<int> ids;
    const Ran ran = Run("state\n");
    for (const json& node : ran.State()["tree"]) ids.push_back(node["id"]);
    return ids;
  }

  /// Where each record lies that the start of the dialog reads.
  std::vector<int> OperationsRead(const DialogWorld::Machine& machine) {
    world.SetMachine(machine);
    Run("");
    std::vector<int> operations;
    bool isFirst = false;
    for (const std::string& call : host.TakeCalls("OrvoMacroVdm")) {
      if (call.starts_with("OrvoMacroVdmOpen")) isFirst = true;
      if (!call.starts_with("OrvoMacroVdmSeek") || !std::exchange(isFirst, false)) continue;
      operations.push_back(std::stoi(call.substr(call.find(',') + 1)));
    }
    return operations;
  }

  /// The numbers of a list of ranges.
  static std::vector<int> Ranges(const std::vector<std::pair<int, int>>& ranges) {
    std::vector<int> ids;
    for (const auto& [first, last] : ranges) {
      for (int id = first; id <= last; ++id) ids.push_back(id);
    }
    return ids;
  }
};

TEST_F(TreeTest, HoldsWhatAnyMachineHas) {
  EXPECT_EQ(Ids({}), Ranges({{1, 7}, {17, 21}, {26, 29}, {33, 51}}));
}

TEST_F(TreeTest, HoldsAllNodesForAMachineThatHasAll) {
  EXPECT_EQ(Ids({.sub = true, .tail = true, .lun = true}), Ranges({{1, 51}}));
}

TEST_F(TreeTest, GrowsByWhatEachPartOfTheMachineBrings) {
  EXPECT_EQ(Ids({.sub = true}), Ranges({{1, 13}, {17, 51}}));
  EXPECT_EQ(Ids({.tail = true}), Ranges({{1, 7}, {14, 15}, {17, 21}, {26, 29}, {33, 51}}));
  EXPECT_EQ(Ids({.lun = true}), Ranges({{1, 7}, {16, 21}, {26, 29}, {33, 51}}));
}

TEST_F(TreeTest, DoesNotDependOnTheCountOfSpurs) {
  EXPECT_EQ(Ids({.spurs = 3}), Ids({}));
}

TEST_F(TreeTest, HasTheTextsParentsAndBitmapsOfItsNodes) {
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  const json plain = Run("state\n").State()["tree"];
  for (const host::Message& message : host::Messages()) {
    host.translations[message.id] = std::to_string(message.id);
  }
  const json translated = Run("state\n").State()["tree"];
  std::string lines;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    lines += plain[i]["id"].dump() + " in " + plain[i]["parent"].dump() + ": " +
             std::string(translated[i]["text"]) + " " + plain[i]["text"].dump() + " " +
             plain[i]["bitmaps"].dump() + "\n";
  }
  EXPECT_GOLDEN(lines, "dialog/tree.txt");
}

TEST_F(TreeTest, OpensEveryBranchButTheOneOfNewDevices) {
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  std::vector<int> open;
  const Ran ran = Run("state\n");
  for (const json& node : ran.State()["tree"]) {
    if (node["open"]) open.push_back(node["id"]);
  }
  EXPECT_THAT(open, ElementsAre(1, 2, 3, 8, 9, 14, 17, 18, 22, 26, 27, 30, 33));
}

TEST_F(TreeTest, SpeaksTheLanguageOfTheHost) {
  host.translations = {{message::kJaw, "Backe"}, {message::kClampDevice, "Spannmittel"}};
  const Ran ran = Run("state\n");
  const json& tree = ran.State()["tree"];
  EXPECT_EQ(tree[0]["text"], "Spannmittel");
  const auto jaw8 = std::ranges::find_if(tree, [](const json& node) { return node["id"] == 48; });
  EXPECT_EQ((*jaw8)["text"], "Backe 8");
}

struct Selection {
  int node;
  const char* page;
  int spindle, type;
};

TEST_F(TreeTest, ASelectionShowsItsPageAndMeansItsSpindleAndDevice) {
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  std::string script;
  for (const dialog::TreeNodeRow& row : TreeNodes()) {
    script += "select " + std::to_string(row.id) + "\nstate\n";
  }
  const Ran ran = Run(script);
  ASSERT_EQ(ran.states.size(), 51U);
  const auto expect = [&](const Selection& selection) {
    const json& state = ran.states[static_cast<std::size_t>(selection.node - 1)];
    EXPECT_EQ(state["selected"], selection.node);
    EXPECT_EQ(state["page"], selection.page) << selection.node;
    EXPECT_EQ(state["spindle"], selection.spindle) << selection.node;
    EXPECT_EQ(state["device_type"], selection.type) << selection.node;
  };
  for (const int node : {1, 2, 14, 17, 18, 26, 27, 33, 35}) expect({node, "CPageEmpty", 0, 0});
  for (const int node : {8, 22, 30}) expect({node, "CPageEmpty", 1, 0});
  const int kinds[] = {1, 5, 2, 3, 4};
  for (int i = 0; i < 5; ++i) {
    expect({3 + i, "CPageClampElem", 0, kinds[i]});
    expect({9 + i, "CPageClampElem", 1, kinds[i]});
  }
  expect({15, "CPageClampElem", 1, 13});
  expect({16, "CPageBezel", 0, 0});
  for (const int spindle : {0, 1}) {
    expect({19 + 4 * spindle, "CPageBilletCylindric", spindle, 0});
    expect({20 + 4 * spindle, "CPageBilletFromFigure", spindle, 0});
    expect({21 + 4 * spindle, "CPageBilletFromSolid", spindle, 0});
    expect({28 + 3 * spindle, "CPageFinishpartFromFigure", spindle, 0});
    expect({29 + 3 * spindle, "CPageFinishpartFromSolid", spindle, 0});
  }
  expect({34, "CPageZeroPiontShift", 0, 0});
  for (int i = 0; i < 4; ++i) expect({36 + i, "CPageClampElemNew", 0, 1 + i});
  for (const int node : {40, 49}) expect({node, "CPageClampElemNew", 0, 0});
  for (int i = 0; i < 8; ++i) expect({41 + i, "CPageClampElemNew", 0, 5 + i});
  for (int i = 0; i < 2; ++i) expect({50 + i, "CPageClampElemNew", 0, 13 + i});
}

TEST_F(TreeTest, ASelectionPutsTheFocusBackOnTheTree) {
  EXPECT_THAT(Run("select 19\nselect 19\n").events,
              ElementsAre("focus 2158", "focus 2158", "closed end-of-script"));
}

TEST_F(TreeTest, NoNodeIsBoldInANewDefinition) {
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  EXPECT_THAT(Run("state\n").Bold(), IsEmpty());
}

/// What stands in an item of a definition, and what is bold for it.
struct Mark {
  std::size_t operation, item;
  const char* text;
  std::vector<int> bold;
};

TEST_F(TreeTest, BoldSaysWhatExists) {
  const std::vector<Mark> marks = {
      {1, 3, "1 80 90", {3}},
      {1, 3, "103 0 5", {3}},
      {1, 3, "109 0 5", {3}},
      {1, 3, "2 80 90", {5}},
      {1, 3, "105 0 5", {5}},
      {1, 3, "3 80 90", {6}},
      {1, 3, "106 0 5", {6}},
      {1, 3, "4 80 90", {7}},
      {1, 3, "107 0 5", {7}},
      {1, 3, "13 80 90", {}},
      {1, 6, "5 80 90", {4}},
      {1, 6, "104 0 5", {4}},
      {2, 3, "1 80 90", {9}},
      {2, 3, "105 0 5", {11}},
      {2, 3, "106 0 5", {12}},
      {2, 3, "4 1 1", {13}},
      {2, 6, "12 80 90", {10}},
      {10, 3, "13 80 90", {15}},
      {10, 3, "14 80 90", {15}},
      {10, 3, "115 80 90", {15}},
      {10, 3, "1 80 90", {}},
      {1, 8, "1 80 90", {19}},
      {1, 8, "2 0 90", {20}},
      {1, 8, "3 0 90", {21}},
      {1, 8, "4 0 90", {}},
      {2, 8, "1 80 90", {23}},
      {2, 8, "2 0 90", {24}},
      {2, 8, "3 0 90", {25}},
      {16, 2, "1", {28}},
      {16, 2, "2", {29}},
      {17, 2, "1", {31}},
      {17, 2, "2", {32}},
      {4, 2, "1", {16}},
      {4, 2, "2", {16}},
      {4, 2, "-1", {}},
      {3, 2, "1 0 0 0 0 5", {34}},
      {3, 2, "1 0 5 5 5 5", {34}},
      {3, 2, "1 0 0 0 0 0", {}},
      {3, 2, "1 0 5 0 0 0", {34}},
      {3, 2, "1 0 0 5 0 0", {34}},
      {3, 2, "1 0 0 0 5 0", {34}},
  };
  for (const Mark& mark : marks) {
    world.SetMachine({.sub = true, .tail = true, .lun = true});
    auto& record = host.vdms[1000].records[mark.operation];
    ASSERT_LT(mark.item, record.size());
    record[mark.item] = mark.text;
    EXPECT_EQ(Run("state\n").Bold(), mark.bold) << mark.operation << ": " << mark.text;
  }
}

TEST_F(TreeTest, TheMarksComeOfOneRecordAfterTheOther) {
  // Of each spindle device, jaw, billet and finished part; the centre, the datum, the steady rest.
  EXPECT_THAT(OperationsRead({.sub = true, .tail = true, .lun = true}),
              ElementsAre(1, 1, 1, 16, 2, 2, 2, 17, 10, 3, 4));
  EXPECT_THAT(OperationsRead({.tail = true}), ElementsAre(1, 1, 1, 16, 2, 3, 4));
}

TEST_F(TreeTest, TheCentreOfAMachineWithoutASubSpindleIsInTheSubSpindlesPlace) {
  world.SetMachine({.tail = true});
  host.vdms[1000].records[2][3] = "13 80 90";
  EXPECT_THAT(Run("state\n").Bold(), ElementsAre(15));
  host.vdms[1000].records[2][3] = "1 80 90";
  EXPECT_THAT(Run("state\n").Bold(), IsEmpty());
}

TEST_F(TreeTest, ThereAreNoMarksAndNoBoxesWithoutADefinition) {
  world.SetMachine({.sub = true, .tail = true, .lun = true});
  host.vdms.clear();
  const Ran ran = Run("state\n");
  EXPECT_THAT(ran.Bold(), IsEmpty());
  EXPECT_THAT(ran.events, ElementsAre("closed end-of-script"));
  EXPECT_TRUE(host.vdms.empty()) << "the dialog makes none";
}

}  // namespace
}  // namespace vanzet::test
