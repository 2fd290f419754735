#include "modeller/answers.h"

#include <gtest/gtest.h>

#include <sstream>

#include "modeller/body.h"
#include "modeller/foreign_files.h"
#include "modeller/measures.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
namespace fs = std::filesystem;

const Mesh kTriangle = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}};

template <class Value>
std::string Packed(const Value& value) {
  std::ostringstream bytes;
  Pack(value, bytes);
  return bytes.str();
}

std::string FaultOf(const std::string& bytes) {
  std::istringstream stream(bytes);
  return Told(UnpackMeshes(stream));
}

const char* const kIncomplete = "the exchange program gave an incomplete answer";

TEST(Answers, AreReadAsTheyWereWritten) {
  std::istringstream bytes(Packed(std::vector<NamedMesh>{{"PLG_0", kTriangle}, {"", {}}}));
  const auto meshes = Get(UnpackMeshes(bytes));
  ASSERT_EQ(meshes.size(), 2U);
  EXPECT_EQ(meshes[0].name, "PLG_0");
  EXPECT_EQ(meshes[0].mesh.points, kTriangle.points);
  EXPECT_EQ(meshes[0].mesh.triangles, kTriangle.triangles);
  EXPECT_TRUE(meshes[1].mesh.points.empty());
}

TEST(Answers, ThatAreCutShortAnywhereAreRefused) {
  const std::string whole = Packed(std::vector<NamedMesh>{{"PLG_0", kTriangle}, {"SCK_0", kTriangle}});
  EXPECT_EQ(FaultOf(whole), "");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(FaultOf(whole.substr(0, size)), kIncomplete) << size;
  }
}

TEST(Answers, ThatClaimMoreThanABodyMayHaveAreRefused) {
  std::string bytes = Packed(kTriangle);
  bytes.replace(0, 8, "\xff\xff\xff\xff\xff\xff\xff\x7f");
  std::istringstream stream(bytes);
  EXPECT_EQ(Told(UnpackMesh(stream)), kIncomplete);
}

TEST(Answers, ThatNameAPointThatDoesNotExistAreRefused) {
  for (const int corner : {-1, 3, 1 << 30}) {
    Mesh mesh = kTriangle;
    mesh.triangles[0][1] = corner;
    std::istringstream stream(Packed(mesh));
    EXPECT_EQ(Told(UnpackMesh(stream)), kIncomplete) << corner;
  }
}

/// An exchange program in the hands of somebody else, who has it answer to whatever it is asked.
class CapturedProgram : public testing::Test {
 protected:
  Result<Body> Read(const std::string& answer) {
    WriteBytes(folder_ / "answer", answer);
    WriteBytes(folder_ / "captured", "#!/bin/sh\ncat '" + (folder_ / "answer").string() + "' >&3\n");
    fs::permissions(folder_ / "captured", fs::perms::owner_all);
    return ImportBody(folder_ / "x.step", Exchange{folder_ / "captured", {}});
  }

  const TemporaryFolder folder_;
};

TEST_F(CapturedProgram, DoesNotBreakTheWorkbenchByItsAnswers) {
  EXPECT_EQ(Told(Read("")), (folder_ / "x.step").string() + ": " + kIncomplete);
  EXPECT_EQ(Told(Read("noise instead of an answer")), (folder_ / "x.step").string() + ": " + kIncomplete);
}

TEST_F(CapturedProgram, SendsSurfacesIntoWhichTheWorkbenchDoesNotLook) {
  const Body body = Get(Read(Packed(ReadBody{std::nullopt, "surfaces that nobody can read"})));
  const Body moved = Get(MoveBody(body, {1, 2, 3}));
  EXPECT_FALSE(moved.IsStl());
  for (const std::string& fault : {Told(MeshOf(moved, {})), Told(Extents(moved)), Told(MeasuresOf(moved))}) {
    EXPECT_NE(fault, "");
  }
}

}  // namespace
}  // namespace vanzet::modeller
