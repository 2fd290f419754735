#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace vanzet::modeller
