#include "modeller/export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <nlohmann/json.hpp>
#include <numeric>
#include <set>
#include <sstream>

#include "modeller/body.h"
#include "modeller/description.h"
#include "modeller/facets.h"
#include "modeller/foreign_files.h"
#include "modeller/measures.h"
#include "modeller/parcel.h"
#include "modeller/read_back.h"
#include "modeller/solids.h"
#include "modeller/vrml_facets.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::Pointwise;
namespace fs = std::filesystem;

class Exports : public testing::Test {
 protected:
  Exports() {
    bodies_.push_back({"Brücke", BodyOf(Brick(10, 20, 30)), {}, {1, 0, 0}});
    geometry::Matrix aside;
    aside.Rotate(1, 0, 3);
    aside.Translate(100, 0, 0);
    bodies_.push_back({"ball 2", Get(MoveBody(BodyOf(Sphere(10)), {0, 50, 0})), aside, {0, 0.5, 1}});
  }

  fs::path Exported(ExportFormat format) {
    const fs::path file = folder_ / ("out" + std::string(EndingOf(format)));
    EXPECT_EQ(Told(Export(format, file)), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 1);
    return file;
  }

  /// All bodies in one file.
  Result<void> Export(ExportFormat format, const fs::path& file, const Exchange& exchange = TestExchange()) {
    FileBodies all(bodies_.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return MakeFiles(bodies_, {all}, format, {}, exchange, [&](std::size_t, const std::string& content) {
      WriteBytes(file, content);
      return Result<void>();
    });
  }

  /// The brick at the origin; the ball, moved to y 50, turned by a quarter about z to x -50, then moved.
  static constexpr std::array<double, 6> kBox = {0, -10, -10, 60, 20, 30};
  static constexpr double kVolume = 6000 + 4188.790204786391;

  std::vector<NamedBody> bodies_;
  TemporaryFolder folder_;
};

TEST_F(Exports, StepWithNamesColoursAndPlaces) {
  const ReadBack read = ReadStepDocument(Exported(ExportFormat::kStep));
  EXPECT_THAT(read.names, testing::ElementsAre("Brücke", "ball 2"));
  EXPECT_THAT(read.colours, testing::ElementsAre("FF0000", "0080FF"));
  EXPECT_THAT(Box(BodyOf(read.shape)), Pointwise(DoubleNear(1e-3), kBox));
  EXPECT_NEAR(Measured(BodyOf(read.shape)).volume, kVolume, 1e-3);
}

TEST_F(Exports, StepThatIsImportedAgain) {
  const Body body = Get(ImportBody(Exported(ExportFormat::kStep), TestExchange()));
  EXPECT_NEAR(Measured(body).volume, kVolume, 1e-3);
  EXPECT_TRUE(Measured(body).closed);
}

TEST_F(Exports, StlOfAllBodies) {
  const Body body = Get(ImportBody(Exported(ExportFormat::kStl), TestExchange()));
  EXPECT_TRUE(body.IsStl());
  EXPECT_TRUE(Measured(body).closed);
  EXPECT_NEAR(Measured(body).volume, kVolume, kVolume * 0.02);
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(0.2), kBox));
}

TEST_F(Exports, WrlWithAShapeForEachBody) {
  const std::string text = ReadBytes(Exported(ExportFormat::kWrl));
  EXPECT_EQ(ReadVrml(text).triangles.size(), 12U) << "the first is the brick";
  EXPECT_THAT(text, testing::HasSubstr("DEF Body1_Br__cke Transform {"));
  EXPECT_THAT(text, testing::HasSubstr("DEF Body2_ball_2 Transform {"));
  EXPECT_THAT(text, testing::HasSubstr("diffuseColor 0 0.5 1\n"));
  const std::string second = text.substr(text.find("DEF Body2_"));
  const Mesh ball = ReadVrml("#VRML V2.0 utf8\n" + second);
  EXPECT_TRUE(IsClosed(ball));
  EXPECT_NEAR(MeasuresOf(ball).centroid.x, 50, 1e-2);
}

TEST_F(Exports, GltfInMetresWithYUpwards) {
  const ReadBack read = ReadGltfDocument(Exported(ExportFormat::kGltf));
  EXPECT_THAT(read.names, testing::ElementsAre("Brücke", "ball 2"));
  EXPECT_THAT(read.colours, testing::ElementsAre("FF0000", "0080FF"));
  // The bodies have y upwards, too.
  EXPECT_THAT(Box(BodyOf(read.shape, true)),
              Pointwise(DoubleNear(2e-4), {0.0, -0.01, -0.01, 0.06, 0.02, 0.03}));
}

/// The materials in the text part of a binary glTF file.
nlohmann::json MaterialsOf(const fs::path& file) {
  const std::string bytes = ReadBytes(file);
  std::uint32_t length = 0;
  std::memcpy(&length, bytes.data() + 12, sizeof(length));
  return nlohmann::json::parse(bytes.substr(20, length), nullptr, false)["materials"];
}

TEST_F(Exports, GltfWithMaterialsThatAreNoPolishedMetal) {
  bodies_[1].appearance.isSteel = true;
  std::vector<double> metallic, roughness;
  for (const auto& material : MaterialsOf(Exported(ExportFormat::kGltf))) {
    metallic.push_back(material["pbrMetallicRoughness"].value("metallicFactor", 1.0));
    roughness.push_back(material["pbrMetallicRoughness"].value("roughnessFactor", 1.0));
  }
  EXPECT_THAT(metallic, Pointwise(DoubleNear(1e-6), {0.0, 0.3}));
  EXPECT_THAT(roughness, Pointwise(DoubleNear(1e-6), {0.6, 0.6}));
}

TEST_F(Exports, ABodyThatIsSeenThrough) {
  bodies_[1].appearance.isSeenThrough = true;
  const auto materials = MaterialsOf(Exported(ExportFormat::kGltf));
  EXPECT_EQ(materials[0].value("alphaMode", "OPAQUE"), "OPAQUE");
  EXPECT_EQ(materials[1].value("alphaMode", "OPAQUE"), "BLEND");
  EXPECT_NEAR(materials[1]["pbrMetallicRoughness"]["baseColorFactor"][3].get<double>(), 0.4, 1e-6);
  fs::remove(folder_ / "out.glb");
  const std::string wrl = ReadBytes(Exported(ExportFormat::kWrl));
  EXPECT_THAT(wrl, testing::HasSubstr("diffuseColor 1 0 0\n}"));
  EXPECT_THAT(wrl, testing::HasSubstr("diffuseColor 0 0.5 1\ntransparency 0.6\n}"));
  fs::remove(folder_ / "out.wrl");
  const std::string step = ReadBytes(Exported(ExportFormat::kStep));
  EXPECT_THAT(step, testing::HasSubstr("SURFACE_STYLE_TRANSPARENT(0.5999"));
}

TEST_F(Exports, StepOfSeveralBodiesIsOneAssembly) {
  EXPECT_EQ(ReadStepDocument(Exported(ExportFormat::kStep)).roots, std::vector<std::string>{"equipment"});
}

TEST_F(Exports, StepOfOneBodyIsThatPart) {
  bodies_.pop_back();
  EXPECT_EQ(ReadStepDocument(Exported(ExportFormat::kStep)).roots, std::vector<std::string>{"Brücke"});
}

TEST_F(Exports, StepSaysWhatMadeIt) {
  const std::string text = ReadBytes(Exported(ExportFormat::kStep));
  const std::string head = text.substr(0, text.find("ENDSEC"));
  EXPECT_THAT(head, testing::HasSubstr("FILE_NAME('equipment'"));
  EXPECT_THAT(head, testing::HasSubstr("'vanzet'"));
  EXPECT_THAT(head, testing::Not(testing::HasSubstr("Author")));
  EXPECT_THAT(head, testing::Not(testing::HasSubstr("Shape Model")));
}

TEST_F(Exports, StepOfTheSameTimeIsTheSameByteForByte) {
  for (int i = 0; i < 6; ++i) {
    const double part = i / 6.0;
    bodies_.push_back(
        {"brick " + std::to_string(i), BodyOf(Brick(1 + i, 2, 3)), {}, {{part, 1 - part, 0.5}}});
  }
  std::set<std::string> contents;
  const FileOptions options{.fineness = {}, .time = "2026-11-22T09:00:00Z"};
  const auto take = [&](std::size_t, const std::string& content) -> Result<void> {
    contents.insert(content);
    return {};
  };
  const FileBodies all = {0, 1, 2, 3, 4, 5, 6, 7};
  for (int run = 0; run < 4; ++run) {
    EXPECT_EQ(Told(MakeFiles(bodies_, {all}, ExportFormat::kStep, options, TestExchange(), take)), "");
  }
  ASSERT_EQ(contents.size(), 1U);
  EXPECT_THAT(*contents.begin(), testing::HasSubstr("FILE_NAME('equipment','2026-11-22T09:00:00Z'"));
}

TEST_F(Exports, StepWithTheNamedPlacesOfItsBodies) {
  const NamedPlace datum{"main datum", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  const NamedPlace plug{"ball 2 plug", {60, 1, -2}, {-1, 0, 0}, {0, 0.6, 0.8}};
  bodies_[0].places = {datum};
  bodies_[1].places = {datum, plug};
  const fs::path file = Exported(ExportFormat::kStep);
  const auto described = Get(DescribeFile(file, TestExchange()));
  ASSERT_EQ(described.places.size(), 2U) << "the datum once";
  EXPECT_EQ(described.places[0].name, "main datum");
  EXPECT_EQ(described.places[1].name, "ball 2 plug");
  EXPECT_EQ(described.places[1].origin.x, 60);
  EXPECT_EQ(described.places[1].origin.z, -2);
  EXPECT_EQ(described.places[1].axis.dx, -1);
  EXPECT_NEAR(described.places[1].upwards.dz, 0.8, 1e-12);
  const ReadBack read = ReadStepDocument(file);
  EXPECT_THAT(read.names, testing::ElementsAre("Brücke", "ball 2")) << "the bodies are as without places";
  EXPECT_THAT(Box(BodyOf(read.shape)), Pointwise(DoubleNear(1e-3), kBox));
}

TEST_F(Exports, StepOfOneBodyHasItsPlaces) {
  bodies_.pop_back();
  bodies_[0].places = {{"main datum", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}}};
  bodies_[0].places.push_back({"plug", {1, 2, 3}, {0, 1, 0}, {0, 0, 1}});
  const fs::path file = Exported(ExportFormat::kStep);
  const auto described = Get(DescribeFile(file, TestExchange()));
  ASSERT_EQ(described.places.size(), 2U);
  EXPECT_EQ(described.places[0].name, "main datum");
  EXPECT_THAT(Box(Get(ImportBody(file, TestExchange()))),
              Pointwise(DoubleNear(1e-3), {0.0, 0.0, 0.0, 10.0, 20.0, 30.0}))
      << "the places do not move the body";
  EXPECT_THAT(ReadStepDocument(file).colours, testing::ElementsAre("FF0000"));
}

TEST_F(Exports, IgesThatIsImportedAgain) {
  const Body body = Get(ImportBody(Exported(ExportFormat::kIges), TestExchange()));
  EXPECT_NEAR(Measured(body).volume, kVolume, 1e-2);
  EXPECT_TRUE(Measured(body).closed);
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(1e-3), kBox));
}

TEST_F(Exports, ThreeMfThatIsImportedAgain) {
  const Body body = Get(ImportBody(Exported(ExportFormat::k3mf), TestExchange()));
  EXPECT_TRUE(body.IsStl());
  EXPECT_TRUE(Measured(body).closed);
  EXPECT_NEAR(Measured(body).volume, kVolume, kVolume * 0.02);
  EXPECT_THAT(Box(body), Pointwise(DoubleNear(0.2), kBox));
}

TEST_F(Exports, ObjWithAnObjectForEachBody) {
  const std::string text = ReadBytes(Exported(ExportFormat::kObj));
  EXPECT_THAT(text, testing::StartsWith("# millimetres\no Brücke\nv "));
  const std::string ball = text.substr(text.find("o ball 2\n"));
  EXPECT_THAT(ball, testing::HasSubstr(" 0 0.5 1\n"));
  // The faces of the ball count its points after the eight of the brick.
  std::istringstream lines(ball);
  std::string word;
  int points = 0, least = 1 << 30, most = 0;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    words >> word;
    points += word == "v" ? 1 : 0;
    for (int corner = 0; word == "f" && words >> corner;) {
      least = std::min(least, corner);
      most = std::max(most, corner);
    }
  }
  EXPECT_EQ(least, 9);
  EXPECT_EQ(most, 8 + points);
}

TEST_F(Exports, BodiesOfFacetsToEveryFormat) {
  WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", StlForm::kBinary);
  const Body facets = Get(ImportBody(folder_ / "brick.stl", TestExchange()));
  fs::remove(folder_ / "brick.stl");
  geometry::Matrix up;
  up.Translate(0, 0, 5);
  bodies_ = {{"facets", facets, up, {}}};
  const Body step = Get(ImportBody(Exported(ExportFormat::kStep), TestExchange()));
  EXPECT_FALSE(step.IsStl());
  EXPECT_TRUE(IsSound(step));
  EXPECT_NEAR(Measured(step).volume, 6000, 1e-3);
  EXPECT_THAT(Box(step), Pointwise(DoubleNear(1e-4), {0.0, 0.0, 5.0, 10.0, 20.0, 35.0}));
  fs::remove(folder_ / "out.step");
  const ReadBack gltf = ReadGltfDocument(Exported(ExportFormat::kGltf));
  EXPECT_THAT(Box(BodyOf(gltf.shape, true)),
              Pointwise(DoubleNear(1e-5), {0.0, 0.0, 0.005, 0.01, 0.02, 0.035}));
}

TEST_F(Exports, SeveralFilesOfTheSameBodiesInTheirOrder) {
  for (const std::string& word : FormatWords()) {
    std::vector<std::string> contents;
    const auto take = [&](std::size_t file, const std::string& content) -> Result<void> {
      EXPECT_EQ(file, contents.size());
      contents.push_back(content);
      return {};
    };
    const ExportFormat format = *FormatNamed(word);
    EXPECT_EQ(Told(MakeFiles(bodies_, {{0, 1}, {1}, {0}}, format, {}, TestExchange(), take)), "") << word;
    ASSERT_EQ(contents.size(), 3U) << word;
    EXPECT_GT(contents[0].size(), contents[1].size()) << word;
    EXPECT_GT(contents[0].size(), contents[2].size()) << word;
    EXPECT_NE(contents[1], contents[2]) << word;
  }
}

TEST_F(Exports, StopWhereAFileIsNotTaken) {
  int taken = 0;
  const auto take = [&](std::size_t, const std::string&) -> Result<void> {
    ++taken;
    return Fault{"no room"};
  };
  for (const ExportFormat format : {ExportFormat::kStl, ExportFormat::kGltf, ExportFormat::k3mf}) {
    EXPECT_EQ(Told(MakeFiles(bodies_, {{0}, {1}}, format, {}, TestExchange(), take)), "no room");
  }
  EXPECT_EQ(taken, 3);
}

TEST_F(Exports, MeasureWhatIsWritten) {
  const auto brick = Get(FactsOf(bodies_[0], ExportFormat::kStep, {}));
  EXPECT_NEAR(brick.volume.value_or(0), 6000, 1e-6);
  EXPECT_EQ(brick.triangles, 12U);
  const auto ball = Get(FactsOf(bodies_[1], ExportFormat::kStep, {}));
  EXPECT_NEAR(ball.volume.value_or(0), 4188.790204786391, 1e-6);
  EXPECT_NEAR(ball.box.min.x, 40, 1e-3) << "where it is placed";
  EXPECT_LT(Get(FactsOf(bodies_[1], ExportFormat::kStl, {})).volume.value_or(0), 4188)
      << "facets are within the ball";
}

TEST_F(Exports, MeasureNoVolumeOfAnOpenBody) {
  const Mesh open = {{{0, 0, 0}, {10, 0, 0}, {0, 10, 5}}, {{0, 1, 2}}};
  const auto facts = Get(FactsOf({"open", BodyOf(FaceOf(open), true), {}, {}}, ExportFormat::kStl, {}));
  EXPECT_EQ(facts.volume, std::nullopt);
  EXPECT_EQ(facts.triangles, 1U);
  EXPECT_EQ(facts.box.max.z, 5);
}

TEST_F(Exports, NothingWithoutABody) {
  bodies_.clear();
  EXPECT_EQ(Told(Export(ExportFormat::kStep, folder_ / "out.step")), "no body to write");
}

TEST_F(Exports, NothingThatIsScaledOrMirrored) {
  for (const double scale : {2.0, -1.0}) {
    bodies_[0].placement.Unit();
    bodies_[0].placement.Scale(1, 1, scale);
    EXPECT_THAT(Told(Export(ExportFormat::kStl, folder_ / "out.stl")),
                testing::HasSubstr("a body can be moved and turned, not scaled or mirrored"));
  }
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST_F(Exports, NothingWithoutTheExchangeProgram) {
  EXPECT_NE(Told(Export(ExportFormat::kGltf, folder_ / "out.glb", Exchange{folder_ / "none", {}})), "");
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

TEST(ExportFiles, TravelAsOneWord) {
  const std::vector<FileBodies> files = {{0, 1, 2}, {1}, {12}};
  EXPECT_EQ(FilesWord(files), "0,1,2;1;12");
  EXPECT_EQ(FilesOfWord("0,1,2;1;12", 13), files);
  for (const char* word : {"", ";", "0,", "0;;1", "a", "0 1", "-1", "3", "99999999999999999999"}) {
    EXPECT_TRUE(FilesOfWord(word, 3).empty()) << word;
  }
  EXPECT_EQ(NumberedFile("/tmp/x/bodies.step", 2), "/tmp/x/bodies-2.step");
}

TEST(ExportFormats, HaveTheirWords) {
  EXPECT_EQ(FormatNamed("step"), ExportFormat::kStep);
  EXPECT_EQ(FormatNamed("gltf"), ExportFormat::kGltf);
  EXPECT_EQ(FormatNamed("dwg"), std::nullopt);
  EXPECT_EQ(EndingOf(ExportFormat::kWrl), ".wrl");
}

}  // namespace
}  // namespace vanzet::modeller
