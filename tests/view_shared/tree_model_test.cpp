#include "view/shared/tree_model.h"

#include <gmock/gmock.h>

#include "view/ids.h"

namespace vanzet::view {
namespace {

using testing::ElementsAre;

/// "Equipment" with a spindle that has a chuck and a billet.
DialogState Equipment() {
  DialogState state;
  state.caption = "Definition";
  state.tree = {{.id = 1, .text = "Equipment"},
                {.id = 2, .parent = 1, .text = "Main spindle", .isBold = true},
                {.id = 3, .parent = 2, .text = "Chuck", .isBold = true, .name = "/shop/Chuck 210"},
                {.id = 4, .parent = 2, .text = "Billet", .isBold = true, .values = {{"A", 80}, {"B", 120.5}}},
                {.id = 5, .parent = 2, .text = "Jaw"}};
  return state;
}

TEST(TreeModel, PlacesAPageBelowTheRoot) {
  DialogState state = Equipment();
  EXPECT_EQ(PlaceInTree(state), "");
  state.selectedNode = 3;
  EXPECT_EQ(PlaceInTree(state), "Main spindle: Chuck");
  state.selectedNode = 1;
  EXPECT_EQ(PlaceInTree(state), "Equipment");
}

TEST(TreeModel, SpeaksOfWhatIsDefinedAndNotStored) {
  EXPECT_EQ(SpokenNode({.text = "Jaw"}, false), "Jaw");
  EXPECT_EQ(SpokenNode({.text = "Chuck", .isBold = true}, true), "Chuck, defined, values not stored yet");
}

TEST(TreeModel, SumsUpWhatIsDefinedBelowAFolder) {
  DialogState state = Equipment();
  const FolderPage top = FolderPageOf(state);
  EXPECT_EQ(top.title, "Definition");
  ASSERT_EQ(top.entries.size(), 1U);
  state.selectedNode = 1;
  const FolderPage root = FolderPageOf(state);
  EXPECT_EQ(root.title, "Equipment");
  ASSERT_EQ(root.entries.size(), 1U);
  EXPECT_THAT(root.entries[0].lines, ElementsAre("Chuck: Chuck 210", "Billet: A 80, B 120.5"));
  state.selectedNode = 2;
  const FolderPage spindle = FolderPageOf(state);
  ASSERT_EQ(spindle.entries.size(), 3U);
  EXPECT_EQ(spindle.entries[0].node->id, 3);
  EXPECT_THAT(spindle.entries[0].lines, ElementsAre("Chuck 210"));
  EXPECT_THAT(spindle.entries[2].lines, ElementsAre());
}

TEST(TreeModel, HintsAtTheCatalogueOnItsNodes) {
  DialogState state = Equipment();
  const std::string hint = FolderPageOf(state).hint;
  state.tree.push_back({.id = node::kNewDevices, .parent = 1, .text = "New"});
  state.selectedNode = node::kNewDevices;
  EXPECT_NE(FolderPageOf(state).hint, hint);
}

TEST(TreeModel, NamesValuesThatAreNotStoredUntilTheNextPageIsLeft) {
  DialogState state = Equipment();
  UnstoredLine line;
  state.selectedNode = 4;
  state.page = "CPageBilletCylindric";
  state.controls = {{.id = control::kOuterDiameter, .kind = ControlKind::kEdit, .caption = "A"}};
  line.Follow(state);
  EXPECT_EQ(line.Text(), "");
  state.unstored = {control::kOuterDiameter};
  line.Follow(state);
  EXPECT_EQ(line.Text(), "Not stored yet: A");
  EXPECT_EQ(line.Names(), "A");
  state.unstored = {};
  state.selectedNode = 5;
  line.Follow(state);
  line.Follow(state);
  EXPECT_EQ(line.Text(), "Main spindle: Billet was left with values that were not stored: A");
  state.spur = 1;
  line.Follow(state);
  EXPECT_EQ(line.Text(), "");
}

}  // namespace
}  // namespace vanzet::view
