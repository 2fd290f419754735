#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "modeller/body_folder.h"
#include "modeller/foreign_files.h"
#include "modeller/mesh.h"
#include "modeller/solids.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;
namespace fs = std::filesystem;

class Imports : public testing::Test {
 protected:
  Body Import(const std::string& name) { return Get(ImportBody(folder_ / name, TestExchange())); }

  void ExpectTheBrick(const Body& body) {
    EXPECT_THAT(Box(body), Pointwise(DoubleNear(1e-4), {0.0, 0.0, 0.0, 10.0, 20.0, 30.0}));
    EXPECT_NEAR(Measured(body).volume, 6000, 1e-2);
    EXPECT_TRUE(Measured(body).closed);
  }

  std::string NameOf(const BodyFile& file) { return file.path.filename().string(); }

  TemporaryFolder folder_;
};

TEST_F(Imports, StepInWhateverUnit) {
  for (const char* unit : {"MM", "INCH", "M"}) {
    WriteStep(Brick(10, 20, 30), folder_ / "brick.step", unit);
    const Body brick = Import("brick.step");
    ExpectTheBrick(brick);
    EXPECT_FALSE(brick.IsStl());
    EXPECT_TRUE(IsSound(brick));
  }
}

TEST_F(Imports, EndingsInAnyCase) {
  WriteStep(Brick(10, 20, 30), folder_ / "a.STP");
  WriteBrep(Brick(10, 20, 30), folder_ / "b.BRep");
  ExpectTheBrick(Import("a.STP"));
  ExpectTheBrick(Import("b.BRep"));
}

TEST_F(Imports, StlAsTrianglesAlone) {
  for (const StlForm form : {StlForm::kText, StlForm::kBinary}) {
    WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", form);
    const Body brick = Import("brick.stl");
    EXPECT_TRUE(brick.IsStl());
    ExpectTheBrick(brick);
    EXPECT_EQ(Get(MeshOf(brick, {})).triangles.size(), 12U);
  }
}

TEST_F(Imports, BinaryStlWhoseBytesAreAllThoseOfAText) {
  // One triangle between the points 0, 10 along x and 10 along y, with a normal of zeros.
  std::string bytes(84 + 50, '\0');
  bytes.replace(0, 6, "binary");
  std::fill(bytes.begin() + 6, bytes.begin() + 80, ' ');
  bytes[80] = 1;
  const float ten = 10;
  std::memcpy(bytes.data() + 84 + 24, &ten, sizeof(ten));
  std::memcpy(bytes.data() + 84 + 40, &ten, sizeof(ten));
  WriteBytes(folder_ / "small.stl", bytes);
  const Body small = Import("small.stl");
  EXPECT_TRUE(small.IsStl());
  EXPECT_NEAR(Measured(small).area, 50, 1e-9);
}

TEST_F(Imports, StlWithTheExtentsOfItsTriangles) {
  WriteStl(Sphere(10), folder_ / "ball.stl", StlForm::kBinary);
  const auto box = Box(Import("ball.stl"));
  EXPECT_NEAR(box[5], 10, 1e-4) << "a pole is a point of the mesh";
  EXPECT_LT(box[4], 10) << "elsewhere facets stay inside";
  EXPECT_GT(box[4], 9.8);
}

TEST_F(Imports, KeepWhatWasRound) {
  WriteStep(Casting(), folder_ / "casting.step");
  EXPECT_NEAR(Measured(Import("casting.step")).volume, Measured(BodyOf(Casting())).volume, 1e-3);
}

TEST_F(Imports, ReportTheirProgress) {
  WriteStep(Casting(), folder_ / "casting.step");
  std::vector<double> reported;
  Exchange exchange = TestExchange();
  exchange.progress = [&](double done) { return reported.push_back(done), true; };
  EXPECT_TRUE(ImportBody(folder_ / "casting.step", exchange));
  ASSERT_FALSE(reported.empty());
  EXPECT_TRUE(std::ranges::is_sorted(reported));
  EXPECT_GT(reported.back(), 0);
  EXPECT_LE(reported.back(), 1);
}

TEST_F(Imports, StopWhenTheyAreCancelled) {
  WriteStep(Casting(), folder_ / "casting.step");
  Exchange exchange = TestExchange();
  exchange.progress = [](double) { return false; };
  const auto stopped = ImportBody(folder_ / "casting.step", exchange);
  EXPECT_EQ(Told(stopped), (folder_ / "casting.step").string() + ": cancelled");
}

TEST_F(Imports, ListAFolderWithoutReadingIt) {
  for (const char* name :
       {"b.step", "B.stl", "a.STP", "a.brep", "c.stl", "d.txt", "e.dxf", "step", ".step"}) {
    WriteBytes(folder_ / name, "no body at all");
  }
  fs::create_directory(folder_ / "f.step");
  const auto files = BodyFilesIn(folder_.path());
  std::vector<std::string> names;
  for (const BodyFile& file : files) names.push_back(file.name + " " + NameOf(file));
  EXPECT_THAT(names, ElementsAre("a a.STP", "b b.step", "c c.stl"));
}

TEST_F(Imports, FindNothingInAMissingFolder) {
  EXPECT_TRUE(BodyFilesIn(folder_ / "none").empty());
}

TEST_F(Imports, ReadANamedBodyOnceAndKeepItsNumber) {
  WriteStep(Brick(10, 20, 30), folder_ / "Brick.step");
  BodyTable table;
  const auto number = Get(FindOrImportBody("brick", table, folder_.path(), TestExchange()));
  EXPECT_EQ(number, 1);
  EXPECT_EQ(table.NameOf(1), "Brick");
  fs::remove(folder_ / "Brick.step");
  EXPECT_EQ(Get(FindOrImportBody("BRICK", table, folder_.path(), TestExchange())), 1);
  ExpectTheBrick(Get(table.Get(1)));
}

TEST_F(Imports, ReportAnUnknownName) {
  BodyTable table;
  EXPECT_EQ(Told(FindOrImportBody("brick", table, folder_.path(), TestExchange())),
            folder_.path().string() + ": body 'brick' does not exist");
  EXPECT_TRUE(table.Numbers().empty());
}

TEST_F(Imports, OfTheExamples) {
  const fs::path examples = VANZET_SOURCE_DIR "/examples/bodies";
  const Body casting = Get(ImportBody(examples / "casting.step", TestExchange()));
  EXPECT_THAT(Box(casting), Pointwise(DoubleNear(1e-3), {0.0, 0.0, 0.0, 60.0, 40.0, 30.0}));
  EXPECT_NEAR(Measured(casting).volume, Measured(BodyOf(Casting())).volume, 1e-2);
  const Body scan = Get(ImportBody(examples / "scan.stl", TestExchange()));
  EXPECT_TRUE(scan.IsStl());
  EXPECT_TRUE(Measured(scan).closed);
}

}  // namespace
}  // namespace vanzet::modeller
