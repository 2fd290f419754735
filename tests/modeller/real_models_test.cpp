#include <gmock/gmock.h>
#include <BRep_Builder.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <fstream>
#include <gp_Trsf.hxx>

#include "modeller/exchange.h"
#include "modeller/export.h"
#include "modeller/foreign_files.h"
#include "modeller/mesh.h"
#include "modeller/solids.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;

/// Models as makers of clamping equipment send them.
class RealModels : public testing::Test {
 protected:
  Body Import(const std::string& name) { return Get(ImportBody(folder_ / name, TestExchange())); }

  /// The facets that a definition would hold, read by others.
  Body AsVrml(const Body& body) {
    EXPECT_EQ(Told(ExportVrml(body, folder_ / "out.wrl", {})), "");
    const auto read = ImportVrml(ReadBytes(folder_ / "out.wrl"), TestExchange());
    EXPECT_TRUE(read && read->size() == 1);
    return read->front().body;
  }

  const TemporaryFolder folder_;
};

TEST_F(RealModels, AChuckBodyOfSomeHundredFacesKeepsItsVolumeAndExtents) {
  const TopoDS_Shape chuck = ChuckBody();
  TopTools_IndexedMapOfShape faces;
  TopExp::MapShapes(chuck, TopAbs_FACE, faces);
  ASSERT_GE(faces.Extent(), 200);
  const double volume = Measured(BodyOf(chuck)).volume;
  WriteStep(chuck, folder_ / "chuck.step", "INCH");
  const Body read = Import("chuck.step");
  EXPECT_NEAR(Measured(read).volume, volume, volume * 1e-6);
  const auto box = Box(read);
  EXPECT_NEAR(box[0], -kChuckDepth, 1e-3);
  EXPECT_NEAR(box[3], 0, 1e-3);
  EXPECT_NEAR(box[4], kChuckRadius, 1e-3);
  const Body facets = AsVrml(read);
  EXPECT_TRUE(Measured(facets).closed);
  EXPECT_NEAR(Measured(facets).volume, volume, volume * 0.01);
}

TEST_F(RealModels, AnAssemblyHasItsPartsWhereTheyAre) {
  const TopoDS_Shape brick = Brick(10, 20, 30);
  gp_Trsf aside;
  aside.SetTranslation(gp_Vec(100, 0, 0));
  BRep_Builder builder;
  TopoDS_Compound pair, assembly;
  builder.MakeCompound(pair);
  builder.Add(pair, brick);
  builder.Add(pair, brick.Moved(TopLoc_Location(aside)));
  builder.MakeCompound(assembly);
  builder.Add(assembly, pair);
  builder.Add(assembly, Sphere(5));
  WriteStep(assembly, folder_ / "assembly.step");
  const Body read = Import("assembly.step");
  EXPECT_NEAR(Measured(read).volume, 2 * 6000 + 523.5987755982989, 1e-3);
  EXPECT_NEAR(Box(read)[0], -5, 1e-3);
  EXPECT_NEAR(Box(read)[3], 110, 1e-3);
  EXPECT_NEAR(Box(AsVrml(read))[3], 110, 0.06);
}

TEST_F(RealModels, AnStlWithHolesIsReadAsItIsAndIsOpen) {
  WriteStl(Sphere(20), folder_ / "whole.stl", StlForm::kText);
  std::ifstream whole(folder_ / "whole.stl");
  std::string text;
  int facet = 0;
  bool isLeftOut = false;
  for (std::string line; std::getline(whole, line);) {
    if (line.find("facet normal") != std::string::npos) isLeftOut = ++facet % 50 == 0;
    if (!isLeftOut) text += line + "\n";
    if (line.find("endfacet") != std::string::npos) isLeftOut = false;
  }
  WriteBytes(folder_ / "holes.stl", text);
  ASSERT_GT(facet, 100);
  const Body read = Import("holes.stl");
  EXPECT_TRUE(read.IsStl());
  EXPECT_FALSE(Measured(read).closed);
  // The writer tells a few triangles at the poles that have no area.
  EXPECT_NEAR(static_cast<double>(Get(MeshOf(read, {})).triangles.size()), facet - facet / 50, 4);
  EXPECT_NEAR(Box(read)[3], 20, 0.1);
  EXPECT_NEAR(Box(AsVrml(read))[3], 20, 0.1) << "it can be shown and exported all the same";
}

TEST_F(RealModels, ABrokenStepReportsThePlace) {
  WriteStep(Casting(), folder_ / "whole.step");
  std::string bytes = ReadBytes(folder_ / "whole.step");
  bytes.resize(bytes.size() / 2);
  WriteBytes(folder_ / "half.step", bytes);
  EXPECT_THAT(ImportFault(folder_ / "half.step"), testing::HasSubstr("half.step: "));
}

}  // namespace
}  // namespace vanzet::modeller
