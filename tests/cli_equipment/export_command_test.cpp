#include <gmock/gmock.h>

#include <set>

#include "cli/run_vanzet.h"
#include "modeller/exchange.h"
#include "modeller/foreign_files.h"
#include "modeller/measures.h"
#include "modeller/read_back.h"
#include "modeller/solids.h"
#include "support/places.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;

/// The equipment of the bar job: two clamp devices, three jaws and a stand-in for the collet's, a bar.
class ExportCommand : public CommandLineTest {
 protected:
  ExportCommand() {
    MakeUpgradedProject();
    const Outcome played =
        Vanzet("script lathe '" VANZET_SOURCE_DIR "/examples/scripts/bar-job.txt' --transcript run.jsonl");
    EXPECT_EQ(played.status, 0) << played.err;
  }

  void Export(const std::string& format) {
    const Outcome exported = Vanzet("export lathe --out models --format " + format);
    ASSERT_EQ(exported.status, 0) << exported.err;
    ASSERT_EQ(exported.err, "");
  }

  std::vector<std::string> Files() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder / "models")) names.insert(entry.path().filename());
    return {names.begin(), names.end()};
  }

  modeller::Body Read(const std::string& name) const {
    const auto body = modeller::ImportBody(folder / "models" / name, TestExchange());
    if (body) return *body;
    ADD_FAILURE() << body.fault().Message();
    return modeller::Body(nullptr);
  }

  static void ExpectSame(const std::array<double, 6>& box, const std::array<double, 6>& other,
                         double within) {
    for (std::size_t i = 0; i < box.size(); ++i) EXPECT_NEAR(box[i], other[i], within) << i;
  }
};

TEST_F(ExportCommand, WritesAFileWithAllAndOneForEach) {
  Export("step");
  EXPECT_THAT(Files(), testing::IsSupersetOf({"equipment.step", "main-billet.step", "main-clamp.step",
                                              "main-jaw-1.step", "main-jaw-2.step", "main-jaw-3.step",
                                              "sub-clamp.step"}));
}

TEST_F(ExportCommand, HasTheBarAsLargeAsItWasDefinedInEveryFormat) {
  // 42 across, 1000 long; its part's front at the origin translation of 20, 2 of allowance before it.
  const std::array<double, 6> bar = {22 - 1000, -21, -21, 22, 21, 21};
  const double volume = std::numbers::pi * 441 * 1000;
  Export("step");
  ExpectSame(Box(Read("main-billet.step")), bar, 1e-2);
  EXPECT_NEAR(Measured(Read("main-billet.step")).volume, volume, 1);
  Export("stl");
  ExpectSame(Box(Read("main-billet.stl")), bar, 0.06);
  EXPECT_NEAR(Measured(Read("main-billet.stl")).volume, volume, volume * 0.01);
  Export("wrl");
  const auto wrl = modeller::ImportVrml(ReadBytes(folder / "models/main-billet.wrl"), TestExchange());
  ASSERT_TRUE(wrl) << wrl.fault().Message();
  ASSERT_EQ(wrl->size(), 1U);
  ExpectSame(Box(wrl->front().body), bar, 0.06);
  Export("gltf");
  const ReadBack glb = ReadGltfDocument(folder / "models/main-billet.glb");
  // Metres, y upwards.
  ExpectSame(Box(modeller::BodyOf(glb.shape, true)), {-0.978, -0.021, -0.021, 0.022, 0.021, 0.021}, 1e-4);
}

TEST_F(ExportCommand, HasTheSameBodiesByNameInEveryFormatThatKnowsNames) {
  Export("step");
  const ReadBack step = ReadStepDocument(folder / "models/equipment.step");
  EXPECT_THAT(step.names, testing::IsSupersetOf({"main clamp", "main jaw 1", "main jaw 2", "main jaw 3",
                                                 "main billet", "sub clamp"}));
  Export("gltf");
  EXPECT_EQ(ReadGltfDocument(folder / "models/equipment.glb").names, step.names);
  Export("wrl");
  const auto wrl = modeller::ImportVrml(ReadBytes(folder / "models/equipment.wrl"), TestExchange());
  ASSERT_TRUE(wrl) << wrl.fault().Message();
  EXPECT_EQ(wrl->size(), step.names.size());
}

TEST_F(ExportCommand, HasAllBodiesOfTheSameExtentsAsOneMeshAndAsSurfaces) {
  Export("step");
  Export("stl");
  ExpectSame(Box(Read("equipment.step")), Box(Read("equipment.stl")), 0.2);
}

TEST_F(ExportCommand, TellsWhatItCannotDo) {
  EXPECT_EQ(Vanzet("export lathe --out models --format dwg").status, 2);
  const Outcome noSpur = Vanzet("export lathe --out models --format step --spur 7");
  EXPECT_EQ(noSpur.status, 1);
  EXPECT_THAT(noSpur.err, HasSubstr("spur 7 does not exist"));
  WriteBytes(folder / "taken", "a file");
  const Outcome taken = Vanzet("export lathe --out taken --format step");
  EXPECT_EQ(taken.status, 1);
  EXPECT_THAT(taken.err, HasSubstr("taken: the folder cannot be created"));
  EXPECT_EQ(ReadBytes(folder / "taken"), "a file");
  const Outcome nothing = Vanzet("export lathe --out models --format step --spur 1");
  EXPECT_EQ(nothing.status, 1);
  EXPECT_THAT(nothing.err, HasSubstr("holds no equipment"));
  EXPECT_FALSE(fs::exists(folder / "models"));
}

}  // namespace
}  // namespace vanzet::test
