#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <Geom_Plane.hxx>
#include <Precision.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <gp_Pln.hxx>

#include "modeller/body.h"
#include "modeller/export.h"
#include "modeller/facets.h"
#include "modeller/foreign_files.h"
#include "modeller/read_back.h"
#include "modeller/solids.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
namespace fs = std::filesystem;

const fs::path kFixtures = VANZET_SOURCE_DIR "/tests/modeller/fixtures";

/// A sound solid of four faces, of which the kernel meshes three.
const fs::path kConicalBore = kFixtures / "conical_bore.step";

/// A brick whose face at the top has a plane that stands upright: the kernel cannot mesh it.
TopoDS_Shape BrickWithAnUprightLid(double x, double y, double z) {
  const BRep_Builder builder;
  TopoDS_Shell shell;
  builder.MakeShell(shell);
  TopoDS_Face top;
  for (TopExp_Explorer faces(Brick(x, y, z), TopAbs_FACE); faces.More(); faces.Next()) {
    if (!top.IsNull()) builder.Add(shell, top);
    top = TopoDS::Face(faces.Current());
  }
  TopoDS_Face lid;
  builder.MakeFace(lid, new Geom_Plane(gp_Pln(gp_Pnt(0, 0, z), gp_Dir(1, 0, 0))), Precision::Confusion());
  builder.Add(lid, BRepTools::OuterWire(top));
  builder.Add(shell, lid.Oriented(top.Orientation()));
  TopoDS_Solid solid;
  builder.MakeSolid(solid);
  builder.Add(solid, shell);
  return solid;
}

Body Import(const fs::path& file, const Foresight& foresight = {}) {
  return Get(ImportBody(file, TestExchange(), foresight));
}

TEST(BareFaces, OfASolidGetTheirFacetsAllTheSame) {
  for (const Foresight& foresight : {Foresight(), Foresight{.mesh = true}}) {
    const Body body = Import(kConicalBore, foresight);
    const Measures surfaces = Measured(body), facets = MeasuresOf(Get(MeshOf(body, {})));
    EXPECT_TRUE(surfaces.closed);
    EXPECT_TRUE(facets.closed);
    EXPECT_NEAR(facets.volume, surfaces.volume, surfaces.volume * 0.01);
  }
}

TEST(BareFaces, AreInGltfFilesToo) {
  const TemporaryFolder folder;
  const Body body = Import(kConicalBore);
  const auto take = [&](std::size_t, const std::string& content) -> Result<void> {
    WriteBytes(folder / "out.glb", content);
    return {};
  };
  ASSERT_EQ(Told(MakeFiles({{"bore", body, {}, {}}}, {{0}}, ExportFormat::kGltf, {}, TestExchange(), take)),
            "");
  const Mesh written = FacetsOf(ReadGltfDocument(folder / "out.glb").shape);
  EXPECT_EQ(written.triangles.size(), Get(MeshOf(body, {})).triangles.size());
}

TEST(BareFaces, ThatStayBareMakeTheSolidUseless) {
  const TemporaryFolder folder;
  const fs::path file = folder / "lid.brep";
  WriteBrep(BrickWithAnUprightLid(10, 20, 30), file);
  for (const Foresight& foresight : {Foresight(), Foresight{.mesh = true}}) {
    EXPECT_EQ(Told(MeshOf(Import(file, foresight), {})),
              file.string() + ": a face of the solid cannot be meshed");
  }
}

}  // namespace
}  // namespace vanzet::modeller
