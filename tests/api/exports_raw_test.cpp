#include <array>
#include <cmath>
#include <cstring>

#include "api/host_fixture.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RawExports : public HostTest {
 protected:
  RawExports() {
    for (const char* line : {"win 0", "s100=h 0", "s101=v 0", "s102=h 10", "s103=v 20", "p100=s100 s101",
                             "k30001 p100 ts101 ts102 as103 as100 p100 ek"}) {
      OrvoCommand(line);
    }
    EXPECT_THAT(panel.lines, IsEmpty());
  }

  struct Vertex {
    double x = -1, y = -1, z = -1, cx = -1, cy = -1;
    std::int32_t direction = -9;
  };
  static Vertex Next(std::int32_t handle) {
    Vertex v;
    OrvoGetSpn(&v.x, &v.y, &v.z, &v.cx, &v.cy, &v.direction, handle);
    return v;
  }

  struct Record {
    std::int32_t words[2];
    double reals[4];
  };
  static Record Read(std::int32_t handle) {
    Record record = {};
    EXPECT_EQ(OrvoVdmRead(handle, record.words, 8), 8);
    EXPECT_EQ(OrvoVdmRead(handle, record.reals, 32), 32);
    return record;
  }
};

TEST_F(RawExports, CountTheSpansOfAContour) {
  EXPECT_EQ(OrvoFindNoOfSpansFromKurveNo(30001), 4);
  EXPECT_EQ(OrvoFindNoOfSpansFromKurveNo(30000), 0);
}

TEST_F(RawExports, GiveAContourVertexByVertexFromItsStart) {
  const std::int32_t handle = OrvoVdmExist(30001, 1, 33, 2);
  ASSERT_GT(handle, 0);
  const double expected[][2] = {{0, 0}, {0, 10}, {20, 10}, {20, 0}, {0, 0}};
  for (const auto& [x, y] : expected) {
    const Vertex vertex = Next(handle);
    EXPECT_EQ(vertex.x, x);
    EXPECT_EQ(vertex.y, y);
    EXPECT_EQ(vertex.z, 0);
    EXPECT_EQ(vertex.direction, 0);
  }
  EXPECT_EQ(Next(handle).direction, -9) << "behind the last one nothing is written";
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("beyond the last vertex")));
  EXPECT_EQ(OrvoVdmClose(handle), 0);
}

TEST_F(RawExports, ReturnTheSenseAndTheCentreOfAnArc) {
  for (const char* line :
       {"p101=X2 Y0", "p102=X-2 Y0", "p100=X0 Y0", "c100=p100 2", "k30002 p101 ac100 p102 ac100 p101 ek"}) {
    OrvoCommand(line);
  }
  const std::int32_t handle = OrvoVdmExist(30002, 1, 33, 2);
  EXPECT_EQ(Next(handle).direction, 0);
  const Vertex half = Next(handle);
  EXPECT_EQ(half.direction, 1);
  EXPECT_NEAR(half.x, -2, 1e-12);
  EXPECT_NEAR(half.cx, 0, 1e-12);
  EXPECT_NEAR(half.cy, 0, 1e-12);
}

TEST_F(RawExports, ReadRecordsOfFortyBytesUpToTheEnd) {
  const std::int32_t handle = OrvoVdmOpen(30001, 1, 2);
  ASSERT_GT(handle, 0);
  int records = 0;
  for (; OrvoVdmEoi(handle) == 0; ++records) Read(handle);
  EXPECT_EQ(records, 5);
}

TEST_F(RawExports, StartAgainWithTheMatrix) {
  const std::int32_t handle = OrvoVdmOpen(30001, 1, 2);
  std::array<double, 16> matrix = {};
  for (int pass = 0; pass < 2; ++pass) {
    EXPECT_EQ(OrvoVdmReadTmx(handle, matrix.data()), 0);
    EXPECT_EQ(matrix[0], 1);
    EXPECT_EQ(matrix[1], 0);
    EXPECT_EQ(matrix[15], 1);
    EXPECT_EQ(Read(handle).reals[1], 0);
    EXPECT_EQ(Read(handle).reals[1], 10);
  }
}

TEST_F(RawExports, ReadTheContourAsItWasWhenItWasOpened) {
  const std::int32_t handle = OrvoVdmOpen(30001, 1, 2);
  OrvoCommand("del k30001");
  EXPECT_EQ(OrvoFindNoOfSpansFromKurveNo(30001), 0);
  Read(handle);
  EXPECT_EQ(Read(handle).reals[1], 10);
}

TEST_F(RawExports, GiveNoHandleWithoutAContour) {
  EXPECT_EQ(OrvoVdmOpen(30000, 1, 2), -1);
  EXPECT_EQ(OrvoVdmExist(30000, 1, 33, 2), -1);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(RawExports, DoNothingForAHandleThatIsNotOpen) {
  const std::int32_t closed = OrvoVdmOpen(30001, 1, 2);
  OrvoVdmClose(closed);
  for (const std::int32_t handle : {closed, 0, -1, 99}) {
    char buffer[40] = "untouched";
    EXPECT_EQ(OrvoVdmEoi(handle), 1) << "or a reader would go on for ever";
    EXPECT_EQ(OrvoVdmRead(handle, buffer, 8), 0);
    EXPECT_STREQ(buffer, "untouched");
    EXPECT_EQ(OrvoVdmReadTmx(handle, buffer), -1);
    EXPECT_EQ(OrvoVdmWriteTmx(handle, nullptr), -1);
    EXPECT_EQ(OrvoVdmClose(handle), -1);
  }
}

TEST_F(RawExports, ReadNoMoreThanThereIs) {
  const std::int32_t handle = OrvoVdmOpen(30001, 1, 2);
  char buffer[1000] = "untouched";
  EXPECT_EQ(OrvoVdmRead(handle, buffer, 201), 0);
  EXPECT_EQ(OrvoVdmRead(handle, buffer, -1), 0);
  EXPECT_STREQ(buffer, "untouched");
  EXPECT_EQ(OrvoVdmRead(handle, buffer, 200), 200);
  EXPECT_EQ(OrvoVdmEoi(handle), 1);
}

TEST_F(RawExports, KeepAMatrixInTheStore) {
  const std::int32_t made = OrvoVdmMake(77, 2, 0);
  ASSERT_GT(made, 0);
  std::array<double, 18> record = {};
  for (std::size_t i = 0; i < 16; ++i) record[i] = 1.0 / static_cast<double>(i + 3) - 0.1;
  EXPECT_EQ(OrvoVdmWriteTmx(made, record.data()), 0);
  EXPECT_EQ(OrvoVdmClose(made), 0);
  Restart();
  const std::int32_t opened = OrvoVdmOpen(77, 2, 2);
  ASSERT_GT(opened, 0);
  std::array<double, 18> read = {};
  EXPECT_EQ(OrvoVdmReadTmx(opened, read.data()), 0);
  EXPECT_EQ(read, record) << "to the last bit";
}

TEST_F(RawExports, MakeAMatrixAgain) {
  const std::int32_t made = OrvoVdmMake(77, 2, 0);
  std::array<double, 18> record = {3};
  OrvoVdmWriteTmx(made, record.data());
  const std::int32_t again = OrvoVdmMake(77, 2, 0);
  ASSERT_GT(again, 0);
  OrvoVdmReadTmx(again, record.data());
  EXPECT_EQ(record[0], 1);
}

TEST_F(RawExports, LeaveAVdmAloneThatIsNoMatrix) {
  const std::uint32_t definition = OrvoMacroVdmCreate(1000, 0);
  OrvoMacroVdmInsertText(definition, "1 1 0", 1);
  OrvoMacroVdmClose(definition);
  EXPECT_EQ(OrvoVdmMake(1000, 2, 0), -1);
  EXPECT_EQ(OrvoVdmOpen(1000, 2, 2), -1);
  EXPECT_THAT(panel.lines, ElementsAre(HasSubstr("VDM 1000 does not hold a matrix"),
                                       HasSubstr("VDM 1000 does not hold a matrix")));
  EXPECT_EQ(OrvoMacroVdmExists(1000), 1);
}

TEST_F(RawExports, RefuseAMatrixThatIsNotFinite) {
  const std::int32_t made = OrvoVdmMake(77, 2, 0);
  std::array<double, 18> record = {std::nan("")};
  EXPECT_EQ(OrvoVdmWriteTmx(made, record.data()), -1);
  OrvoVdmReadTmx(made, record.data());
  EXPECT_EQ(record[0], 1) << "it is as it was";
}

TEST_F(RawExports, HaveNoMatrixWhereNoneIs) {
  EXPECT_EQ(OrvoVdmOpen(78, 2, 2), -1);
  EXPECT_EQ(OrvoVdmMake(-1, 2, 0), -1);
}

TEST_F(RawExports, TakeContoursAndMatricesApart) {
  const std::int32_t contour = OrvoVdmOpen(30001, 1, 2);
  std::array<double, 18> record = {2};
  EXPECT_EQ(OrvoVdmWriteTmx(contour, record.data()), -1);
  const std::int32_t matrix = OrvoVdmMake(77, 2, 0);
  char buffer[8];
  EXPECT_EQ(OrvoVdmRead(matrix, buffer, 8), 0);
  EXPECT_EQ(OrvoVdmEoi(matrix), 1);
}

}  // namespace
}  // namespace vanzet::test
