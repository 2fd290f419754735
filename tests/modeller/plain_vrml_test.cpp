#include "modeller/plain_vrml.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "modeller/exchange/read_vrml.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::modeller {
namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

/// The texts that modules send for every type of device, from the tests of the closed loop.
std::vector<std::string> DeviceTexts() {
  std::vector<std::string> texts;
  for (const auto& entry : fs::directory_iterator(VANZET_SOURCE_DIR "/tests/golden/closed_loop")) {
    const std::string all = test::ReadBytes(entry.path());
    for (std::size_t at = all.find("#VRML"); at != std::string::npos; at = all.find("#VRML", at + 1)) {
      const std::size_t end = all.find("\noperation", at);
      texts.push_back(all.substr(at, end == std::string::npos ? end : end + 1 - at));
    }
  }
  return texts;
}

void ExpectSame(const std::vector<NamedMesh>& plain, const std::vector<NamedMesh>& other) {
  ASSERT_EQ(plain.size(), other.size());
  for (std::size_t i = 0; i < plain.size(); ++i) {
    EXPECT_EQ(plain[i].name, other[i].name);
    EXPECT_EQ(plain[i].mesh.triangles, other[i].mesh.triangles);
    ASSERT_EQ(plain[i].mesh.points.size(), other[i].mesh.points.size());
    for (std::size_t k = 0; k < plain[i].mesh.points.size(); ++k) {
      EXPECT_LT(Dist(plain[i].mesh.points[k], other[i].mesh.points[k]), 1e-9);
    }
  }
}

const std::string kFace =
    "#VRML V2.0 utf8\nDEF Name Transform {\ntranslation 0 0 0\nchildren [\nShape {\nappearance Appearance {\n"
    "material Material {\ndiffuseColor 1 0 0\n}\n}\ngeometry IndexedFaceSet {\nccw TRUE\nsolid FALSE\n"
    "coord Coordinate { point [\n0 0 0,\n10 0 0,\n0 10 0,\n10 10 5\n] }\ncoordIndex\n[\n0 1 3 2 "
    "-1\n]\n}\n}\n]\n}\n";

/// The text with one of its parts replaced.
std::string With(const std::string& part, const std::string& other) {
  const std::size_t at = kFace.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  std::string changed = kFace.substr(0, at);
  changed += other;
  changed += kFace.substr(at + part.size());
  return changed;
}

TEST(PlainVrml, GivesOfDeviceTextsWhatTheExchangeProgramGives) {
  const auto texts = DeviceTexts();
  EXPECT_GT(texts.size(), 10U);
  for (const std::string& text : texts) {
    const auto plain = ReadPlainVrml(text);
    ASSERT_TRUE(plain) << text.substr(0, 2000);
    std::istringstream stream(text);
    const auto other = ReadVrml(stream);
    ASSERT_TRUE(other) << other.fault().Message();
    ExpectSame(*plain, *other);
  }
}

TEST(PlainVrml, MakesFansOfFacesWithMoreCorners) {
  const auto read = ReadPlainVrml(kFace);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->size(), 1U);
  EXPECT_EQ(read->front().name, "Name");
  EXPECT_EQ(read->front().mesh.points.size(), 4U);
  EXPECT_THAT(read->front().mesh.triangles, testing::ElementsAre(std::array{0, 1, 3}, std::array{0, 3, 2}));
}

TEST(PlainVrml, LeavesWhatIsNotPlainToTheExchangeProgram) {
  for (const auto& [part, other] : {std::pair{"#VRML V2.0 utf8", "#VRML V1.0 ascii"},
                                    {"translation 0 0 0", "translation 1 0 0"},
                                    {"translation 0 0 0", "rotation 0 0 1 1"},
                                    {"ccw TRUE", "ccw FALSE"},
                                    {"solid FALSE", "solid FALSE creaseAngle 1"},
                                    {"Shape {", "# a comment\nShape {"},
                                    {"geometry IndexedFaceSet", "geometry Box"},
                                    {"DEF Name Transform", "DEF Name Group"},
                                    {"0 1 3 2 -1", "0 1 4 -1"},
                                    {"0 1 3 2 -1", "0 1 -2"},
                                    {"0 1 3 2 -1", "0 1 3"},
                                    {"0 1 3 2 -1", "0 1 -1"},
                                    {"10 10 5", "10 10 1e9"},
                                    {"10 10 5", "10 10 nan"},
                                    {"10 10 5", "10 10"},
                                    {"]\n}\n", "]\n"}}) {
    EXPECT_FALSE(ReadPlainVrml(With(part, other))) << other;
  }
  EXPECT_FALSE(ReadPlainVrml(kFace + "}"));
  EXPECT_FALSE(ReadPlainVrml(""));
}

TEST(PlainVrml, CutAnywhereIsNotPlain) {
  for (std::size_t length = 0; length + 2 < kFace.size(); length += 7) {
    const auto read = ReadPlainVrml(kFace.substr(0, length));
    EXPECT_TRUE(!read || read->empty()) << length;
  }
}

TEST(PlainVrml, GoesNoDeeperThanItsNodes) {
  std::string text = "#VRML V2.0 utf8\n";
  for (int i = 0; i < 100000; ++i) text += "Transform { children [ ";
  EXPECT_FALSE(ReadPlainVrml(text));
}

}  // namespace
}  // namespace vanzet::modeller
