#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <regex>
#include <sstream>

#include "modeller/contours.h"
#include "modeller/export.h"
#include "modeller/measures.h"
#include "modeller/solids.h"
#include "modeller/sweep.h"
#include "modeller/vrml_facets.h"
#include "support/child.h"
#include "support/golden.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
namespace fs = std::filesystem;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

class VrmlFiles : public testing::Test {
 protected:
  std::string Exported(const Body& body, const MeshTolerance& tolerance = {}) {
    const auto done = ExportVrml(body, file_, tolerance);
    EXPECT_EQ(Told(done), "");
    return ReadBytes(file_);
  }

  std::size_t FilesInTheFolder() {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.path()), {}));
  }

  TemporaryFolder folder_;
  fs::path file_ = folder_ / "tmpclamp.wrl";
};

TEST_F(VrmlFiles, HoldABrickLikeThis) {
  EXPECT_GOLDEN(Exported(BodyOf(Brick(10, 20, 30))), "modeller/brick.wrl");
}

TEST_F(VrmlFiles, HaveTheirWordsOnLinesOfTheirOwn) {
  const auto lines = LinesOf(Exported(BodyOf(Sphere(10))));
  EXPECT_EQ(lines[0], "#VRML V2.0 utf8");
  const auto only = [&](const char* word) {
    const auto has = [&](const std::string& line) { return line.find(word) != std::string::npos; };
    EXPECT_EQ(std::ranges::count_if(lines, has), 1) << word;
    return std::ranges::find_if(lines, has);
  };
  const auto points = only("coord Coordinate");
  const auto faces = only("coordIndex");
  EXPECT_EQ(*faces, "coordIndex");
  EXPECT_LT(points, faces);
  only("IndexedFaceSet");
  const auto end = std::find(faces, lines.end(), "]");
  ASSERT_NE(end, lines.end());
  const std::regex point(R"(-?\d+(\.\d{1,6})? -?\d+(\.\d{1,6})? -?\d+(\.\d{1,6})?,?)");
  const std::regex face(R"(\d+ \d+ \d+ -1,?)");
  EXPECT_TRUE(std::all_of(points + 2, faces - 2, [&](auto& line) { return std::regex_match(line, point); }));
  EXPECT_EQ(*(faces + 1), "[");
  EXPECT_TRUE(std::all_of(faces + 2, end, [&](auto& line) { return std::regex_match(line, face); }));
}

TEST_F(VrmlFiles, AreReadByOthersAsTheSameClosedBody) {
  const Millimetres millimetres;
  const Body spun = Get(Spin(Tongue(10), {{0, 0, 0}, {1, 0, 0}}, 360));
  for (const Body& body : {BodyOf(Brick(10, 20, 30)), BodyOf(Sphere(10)), BodyOf(Casting()), spun}) {
    const std::string text = Exported(body);
    const Mesh read = ReadVrml(text);
    EXPECT_TRUE(IsClosed(read));
    const Measures measures = Measured(body);
    EXPECT_NEAR(MeasuresOf(read).volume, measures.volume, measures.volume * 0.02);
    EXPECT_NEAR(MeasuresOf(read).area, measures.area, measures.area * 0.02);
    geometry::Box3d box;
    for (const auto& p : read.points) box.Insert(p);
    const auto extents = Box(body);
    EXPECT_NEAR(box.max.x - box.min.x, extents[3] - extents[0], 0.3);
    const Mesh byLines = ReadByLines(text);
    EXPECT_EQ(byLines.points.size(), read.points.size());
    EXPECT_EQ(byLines.triangles, read.triangles);
  }
}

TEST_F(VrmlFiles, HaveNoNegativeZeros) {
  const Millimetres millimetres;
  const std::string text = Exported(Get(Spin(Rectangle(0, 0, 30, 50), {{0, 0, 0}, {1, 0, 0}}, 360)));
  EXPECT_FALSE(std::regex_search(text, std::regex(R"((^|\s)-0(\.0*)?[\s,])")));
}

TEST_F(VrmlFiles, AreFinerWithASmallerTolerance) {
  EXPECT_GT(Exported(BodyOf(Sphere(10)), {0.01, 5}).size(),
            2 * Exported(BodyOf(Sphere(10)), {0.5, 30}).size());
}

TEST_F(VrmlFiles, ReplaceAnOldFileAndLeaveNothingBeside) {
  WriteBytes(file_, "old");
  Exported(BodyOf(Brick(1, 1, 1)));
  EXPECT_EQ(FilesInTheFolder(), 1U);
}

TEST_F(VrmlFiles, LeaveTheOldFileWhenTheBodyCannotBeMeshed) {
  WriteBytes(file_, "old");
  EXPECT_THAT(Told(ExportVrml(BodyOf(Brick(1, 1, 1)), file_, {0, 0})),
              testing::StartsWith(file_.string() + ": "));
  EXPECT_EQ(ReadBytes(file_), "old");
  EXPECT_EQ(FilesInTheFolder(), 1U);
}

TEST_F(VrmlFiles, HoldABodyOfTheTable) {
  BodyTable table;
  const auto number = Get(table.Add(BodyOf(Brick(10, 20, 30))));
  EXPECT_EQ(Told(ExportVrml(table, number, file_, {})), "");
  EXPECT_EQ(ReadVrml(ReadBytes(file_)).triangles.size(), 12U);
}

TEST_F(VrmlFiles, LeaveTheOldFileWhenThereIsNoSuchBody) {
  WriteBytes(file_, "old");
  for (const std::int32_t number : {0, 7, -1}) {
    EXPECT_EQ(Told(ExportVrml(BodyTable(), number, file_, {})),
              file_.string() + ": body " + std::to_string(number) + " does not exist");
  }
  EXPECT_EQ(ReadBytes(file_), "old");
  EXPECT_EQ(FilesInTheFolder(), 1U);
}

TEST_F(VrmlFiles, ReportAMissingFolder) {
  const fs::path elsewhere = folder_ / "none" / "x.wrl";
  EXPECT_EQ(Told(ExportVrml(BodyOf(Brick(1, 1, 1)), elsewhere, {})),
            elsewhere.string() + ": cannot be written: No such file or directory");
}

TEST_F(VrmlFiles, LeaveNothingOfAFullDisk) {
  WriteBytes(file_, "old");
  Child child([&](Child::Line&) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small = {1000, 1000};
    setrlimit(RLIMIT_FSIZE, &small);
    return !ExportVrml(BodyOf(Sphere(10)), file_, {});
  });
  EXPECT_TRUE(child.End());
  EXPECT_EQ(ReadBytes(file_), "old");
  EXPECT_EQ(FilesInTheFolder(), 1U);
}

}  // namespace
}  // namespace vanzet::modeller
