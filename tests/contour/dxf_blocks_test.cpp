#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class DxfBlocksTest : public DxfTest {
 protected:
  /// A drawing with blocks: "name|groups of the block|its entities".
  static std::string WithBlocks(const std::vector<std::string>& blocks, const std::string& entities) {
    std::string groups = "0 SECTION|2 BLOCKS|";
    for (const std::string& block : blocks) groups += "0 BLOCK|2 " + block + "|0 ENDBLK|";
    return Groups(groups + "0 ENDSEC|0 SECTION|2 ENTITIES|" + entities + "|0 ENDSEC|0 EOF");
  }
  static Contours Placed(const std::vector<std::string>& blocks, const std::string& entities,
                         const DxfOptions& options = {}) {
    const auto content = Dxf(WithBlocks(blocks, entities), options);
    if (content) return content->contours;
    ADD_FAILURE() << content.fault().Message();
    return {};
  }
  static Facts OnlyFacts(const std::vector<std::string>& blocks, const std::string& entities) {
    const Contours contours = Placed(blocks, entities);
    EXPECT_EQ(contours.size(), 1U);
    return contours.empty() ? Facts{} : FactsOf(contours[0]);
  }

  /// A half disc of radius 2 whose base is at 10, 20, and a line.
  inline static const std::string kDisc =
      "Disc|10 10|20 20|0 LWPOLYLINE|8 0|90 2|70 1|10 12|20 20|42 1|10 8|20 20";
};

TEST_F(DxfBlocksTest, AnInsertionPlacesTheBaseOfTheBlock) {
  const Facts facts = OnlyFacts({kDisc}, "0 INSERT|2 DISC|10 100|20 50");
  EXPECT_THAT(facts.low, IsAt(98, 50, 1e-9));
  EXPECT_THAT(facts.high, IsAt(102, 52, 1e-9));
  EXPECT_NEAR(facts.area, 2 * kPi, 1e-9);
}

TEST_F(DxfBlocksTest, ItIsScaledThenTurnedThenMoved) {
  const Facts facts = OnlyFacts({kDisc}, "0 INSERT|2 disc|10 100|20 50|41 3|42 3|43 3|50 90");
  EXPECT_THAT(facts.low, IsAt(94, 44, 1e-9));
  EXPECT_THAT(facts.high, IsAt(100, 56, 1e-9));
  EXPECT_EQ(facts.arcs, 1) << "equal scales keep arcs";
}

TEST_F(DxfBlocksTest, AMirroredOneTurnsTheOtherWay) {
  const Contours plain = Placed({kDisc}, "0 INSERT|2 Disc|10 0|20 0");
  const Contours mirrored = Placed({kDisc}, "0 INSERT|2 Disc|10 0|20 0|41 -1");
  EXPECT_EQ(FactsOf(plain[0]).direction, -FactsOf(mirrored[0]).direction);
  EXPECT_THAT(FactsOf(mirrored[0]).high, IsAt(2, 2, 1e-9)) << "at the axis of the half disc";
  const Contours below = Placed({kDisc}, "0 INSERT|2 Disc|10 5|20 1|210 0|220 0|230 -1");
  EXPECT_EQ(FactsOf(below[0]).direction, FactsOf(mirrored[0]).direction);
  EXPECT_THAT(FactsOf(below[0]).low, IsAt(-7, 1, 1e-9)) << "seen from below, x runs the other way";
}

TEST_F(DxfBlocksTest, UnequalScalesMakeEllipsesOfCircles) {
  const Facts facts = OnlyFacts({"C|0 CIRCLE|10 0|20 0|40 10"}, "0 INSERT|2 C|10 0|20 0|41 2|42 0.5");
  EXPECT_NEAR(facts.area, 100 * kPi, 100 * 0.001) << "20 x 5";
  EXPECT_NEAR(facts.high.x, 20, 0.001);
  EXPECT_NEAR(facts.high.y, 5, 0.001);
  EXPECT_GT(facts.arcs, 4);
  const Facts half = OnlyFacts({kDisc}, "0 INSERT|2 Disc|10 0|20 0|41 5");
  EXPECT_NEAR(half.area, 10 * kPi, 0.03);
}

TEST_F(DxfBlocksTest, ColumnsAndRowsAreTurnedWithTheBlockButNotScaled) {
  const Contours grid =
      Placed({"L|0 LINE|10 0|20 0|11 1|21 0"}, "0 INSERT|2 L|10 0|20 0|41 2|42 2|50 90|70 3|71 2|44 10|45 5");
  ASSERT_EQ(grid.size(), 6U);
  EXPECT_THAT(grid[0].curve.End(), IsAt(0, 2, 1e-9));
  EXPECT_THAT(grid[1].curve.Start(), IsAt(0, 10, 1e-9));
  EXPECT_THAT(grid[3].curve.Start(), IsAt(-5, 0, 1e-9));
  EXPECT_THAT(grid[5].curve.End(), IsAt(-5, 22, 1e-9));
}

TEST_F(DxfBlocksTest, BlocksAreNested) {
  const Contours nested =
      Placed({"Inner|0 LINE|8 0|10 0|20 0|11 1|21 0", "Outer|10 5|20 0|0 INSERT|2 Inner|10 7|20 0|50 90"},
             "0 INSERT|2 Outer|10 0|20 0|50 90");
  ASSERT_EQ(nested.size(), 1U);
  EXPECT_THAT(nested[0].curve.Start(), IsAt(0, 2, 1e-9));
  EXPECT_THAT(nested[0].curve.End(), IsAt(-1, 2, 1e-9));
}

TEST_F(DxfBlocksTest, LayerZeroOfABlockIsTheLayerOfItsInsertion) {
  const std::vector<std::string> blocks = {
      "B|0 LINE|8 0|10 0|20 0|11 1|21 0|0 LINE|8 Own|10 0|20 9|11 2|21 9"};
  const std::string entities = "0 INSERT|8 Cut|2 B|10 0|20 0";
  EXPECT_EQ(Placed(blocks, entities).size(), 2U);
  const Contours cut = Placed(blocks, entities, {.layer = "cut"});
  ASSERT_EQ(cut.size(), 1U);
  EXPECT_NEAR(cut[0].curve.perim, 1, 1e-12);
  EXPECT_NEAR(Placed(blocks, entities, {.layer = "OWN"}).at(0).curve.perim, 2, 1e-12);
}

TEST_F(DxfBlocksTest, AttributesAreIgnored) {
  const auto content = Dxf(WithBlocks({kDisc}, "0 INSERT|2 Disc|66 1|10 0|20 0|0 ATTRIB|8 0|1 M6|0 SEQEND"));
  ASSERT_TRUE(content);
  EXPECT_THAT(content->remarks, testing::IsEmpty());
}

TEST_F(DxfBlocksTest, WhatABlockLeavesOutCountsForEachInsertion) {
  const auto content =
      Dxf(WithBlocks({kDisc + "|0 TEXT|8 0|1 x"},
                     "0 INSERT|2 Disc|10 0|20 0|0 INSERT|2 Disc|10 9|20 0|0 INSERT|2 Lost|10 0|20 0"));
  ASSERT_TRUE(content);
  ASSERT_EQ(content->remarks.size(), 1U);
  EXPECT_EQ(content->remarks[0].text,
            "d.dxf: left out 1 INSERT of a block that the drawing does not have, 2 TEXT");
}

TEST_F(DxfBlocksTest, ABlockThatInsertsItselfIsOneFault) {
  EXPECT_THAT(
      Refused(WithBlocks({"A|0 LINE|10 0|20 0|11 1|21 0|0 INSERT|2 A|10 1|20 0"}, "0 INSERT|2 A|10 0|20 0")),
      testing::MatchesRegex("d.dxf:[0-9]+: blocks are nested more than 32 deep, at the block 'A'"));
}

TEST_F(DxfBlocksTest, ABombOfBlocksIsOneFault) {
  std::vector<std::string> blocks = {"B0|0 LINE|10 0|20 0|11 1|21 0"}, empty = {"B0"};
  for (int i = 1; i <= 20; ++i) {
    const std::string inner = "B" + std::to_string(i - 1),
                      twice = "|0 INSERT|2 " + inner + "|10 0|20 0|0 INSERT|2 " + inner + "|10 0|20 1";
    blocks.push_back("B" + std::to_string(i) + twice);
    empty.push_back(blocks.back());
  }
  const auto bomb = testing::MatchesRegex("d.dxf:[0-9]+: the blocks insert more than 1000000 entities");
  EXPECT_THAT(Refused(WithBlocks(blocks, "0 INSERT|2 B20|10 0|20 0")), bomb);
  EXPECT_THAT(Refused(WithBlocks(empty, "0 INSERT|2 B20|10 0|20 0")), bomb);
  EXPECT_THAT(Refused(WithBlocks({"E"}, "0 INSERT|2 E|10 0|20 0|70 32767|71 32767|44 1|45 1")), bomb);
}

}  // namespace
}  // namespace vanzet::contour
