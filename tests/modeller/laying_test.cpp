#include "modeller/laying.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "modeller/body_folder.h"
#include "modeller/foreign_files.h"
#include "modeller/measures.h"
#include "modeller/solids.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::HasSubstr;
using testing::Pointwise;

/// A brick of 10 x 20 x 30 with a corner at the origin.
class Laid : public testing::Test {
 protected:
  std::string FaultOf(const std::string& text) {
    WriteBytes(folder_ / "brick.lay", text);
    const auto laying = ReadLaying(folder_ / "brick.step");
    return laying ? "" : laying.fault().Message();
  }

  Body brick_ = BodyOf(Brick(10, 20, 30));
  TemporaryFolder folder_;
};

TEST_F(Laid, WithTheFrontToXAndTheAxisOnX) {
  Laying laying;
  laying.looking = *DirectionNamed("z");
  laying.axis = *AxisNamed("5, 10", laying.looking);
  laying.face = 30;
  const Body body = Get(LayBody(brick_, laying));
  // z becomes x; x becomes -z.
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(1e-9), {-30.0, -10.0, -5.0, 0.0, 10.0, 5.0}));
}

TEST_F(Laid, InEachDirectionOfAnAxis) {
  for (const std::string& word : DirectionWords()) {
    const bool isBackwards = word.starts_with('-');
    const double length = word.back() == 'x' ? 10 : word.back() == 'y' ? 20 : 30;
    Laying laying;
    laying.looking = *DirectionNamed(word);
    laying.face = isBackwards ? 0 : length;
    const auto box = Box(Get(LayBody(brick_, laying)));
    EXPECT_NEAR(box[3], 0, 1e-9) << word << ": the front";
    EXPECT_NEAR(box[0], -length, 1e-9) << word;
    EXPECT_EQ(DirectionText(laying.looking), word);
  }
}

TEST_F(Laid, AsTheSameDirectionInNumbers) {
  Laying byWord, byNumbers;
  byWord.looking = *DirectionNamed("y");
  byWord.axis = byNumbers.axis = {1, 2, 3};
  byNumbers.looking = {1e-7, 3, 0};
  EXPECT_THAT(Box(Get(LayBody(brick_, byNumbers))),
              Pointwise(DoubleNear(1e-4), Box(Get(LayBody(brick_, byWord)))));
}

TEST_F(Laid, InADirectionBetweenAxes) {
  Laying laying;
  laying.looking = {1, 0, 1};
  laying.axis = {10, 0, 30};
  laying.face = 40 / std::sqrt(2.0);
  const auto box = Box(Get(LayBody(brick_, laying)));
  EXPECT_NEAR(box[3], 0, 1e-3) << "the corner at 10, 0, 30 is the front";
  EXPECT_NEAR(box[0], -40 / std::sqrt(2.0), 1e-3) << "and that at the origin is the back";
}

TEST_F(Laid, AgainstItself) {
  Laying laying;
  laying.looking = {-2, 0, 0};
  EXPECT_THAT(Box(Get(LayBody(brick_, laying))),
              Pointwise(DoubleNear(1e-9), {-10.0, -20.0, 0.0, 0.0, 0.0, 30.0}));
}

TEST_F(Laid, TurnedAfterAllElse) {
  Laying laying;
  laying.turn = 90;
  EXPECT_THAT(Box(Get(LayBody(brick_, laying))),
              Pointwise(DoubleNear(1e-9), {0.0, -30.0, 0.0, 10.0, 0.0, 20.0}));
}

TEST_F(Laid, InInchesWhereAFileHasNoUnit) {
  WriteStl(Brick(1, 2, 3), folder_ / "small.stl", StlForm::kBinary);
  const Body small = Get(ImportBody(folder_ / "small.stl", TestExchange()));
  Laying laying;
  laying.unit = LengthUnit::kInch;
  EXPECT_THAT(Box(Get(LayBody(small, laying))),
              Pointwise(DoubleNear(1e-4), {0.0, 0.0, 0.0, 25.4, 50.8, 76.2}));
  EXPECT_EQ(Told(LayBody(brick_, laying)), "a body with surfaces has a unit of its own");
}

TEST_F(Laid, ByTheTextThatIsWritten) {
  Laying laying;
  laying.looking = {0.6, 0, 0.8};
  laying.axis = {1.5, -2, 1.0 / 3};
  laying.face = 130;
  laying.turn = 30;
  laying.unit = LengthUnit::kInch;
  EXPECT_EQ(Told(WriteLaying(folder_ / "brick.step", laying)), "");
  EXPECT_TRUE(Get(ReadLaying(folder_ / "brick.step")) == laying);
}

TEST_F(Laid, NotAtAllWithoutAText) {
  EXPECT_EQ(Get(ReadLaying(folder_ / "brick.step")), std::nullopt);
  EXPECT_EQ(FaultOf("; nothing\n"), "") << "all of it has defaults";
}

TEST_F(Laid, ByNoTextThatIsWrong) {
  EXPECT_THAT(FaultOf("lokking = z"),
              HasSubstr("brick.lay:1:1: unknown key 'lokking'; did you mean 'looking'?"));
  EXPECT_THAT(FaultOf("\nlooking = w"),
              HasSubstr("brick.lay:2:11: expected x, -x, y, -y, z, -z or three numbers"));
  EXPECT_THAT(FaultOf("looking = 0, 0, 0"), HasSubstr("expected x, -x"));
  EXPECT_THAT(FaultOf("axis = 1"), HasSubstr("brick.lay:1:8: expected two numbers"));
  EXPECT_THAT(FaultOf("axis = 1, 2, 3, 4"), HasSubstr("expected two numbers"));
  EXPECT_THAT(FaultOf("looking = 1, 1, 0\naxis = 1, 2"), HasSubstr("brick.lay:2:8: expected two numbers"));
  EXPECT_THAT(FaultOf("face = nan"), HasSubstr("expected a number, found 'nan'"));
  EXPECT_THAT(FaultOf("turn = 30 degrees"), HasSubstr("expected a number of degrees"));
  EXPECT_THAT(FaultOf("unit = cm"), HasSubstr("expected mm or inch"));
  EXPECT_THAT(FaultOf("face = 1\nFACE = 2"), HasSubstr("brick.lay:2:1: the key is here twice"));
  EXPECT_THAT(FaultOf("[lay]"), HasSubstr("expected 'key = value'"));
}

TEST_F(Laid, WhereverAProjectUsesTheBody) {
  WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", StlForm::kBinary);
  WriteBytes(folder_ / "brick.lay", "looking = z\nface = 30\n");
  const auto bodies = ImportNamedBodies({"brick"}, folder_.path(), TestExchange(), {});
  EXPECT_THAT(Box(Get(bodies.at("brick"))), Pointwise(DoubleNear(1e-5), {-30.0, 0.0, -10.0, 0.0, 20.0, 0.0}));
  WriteBytes(folder_ / "brick.lay", "looking = up\n");
  EXPECT_THAT(Told(ImportNamedBodies({"brick"}, folder_.path(), TestExchange(), {}).at("brick")),
              HasSubstr("expected x, -x"));
}

}  // namespace
}  // namespace vanzet::modeller
