#include "dxf_fixture.h"

namespace vanzet::contour {
namespace {

class DxfRefusalsTest : public DxfTest {
 protected:
  struct Case {
    const char* entities;
    const char* fault;
  };
  static void ExpectRefused(const std::vector<Case>& cases) {
    for (const Case& c : cases) EXPECT_EQ(Refused(Drawing(c.entities)), c.fault) << c.entities;
  }
};

TEST_F(DxfRefusalsTest, FilesThatAreNotDrawings) {
  EXPECT_EQ(Refused(""), "d.dxf: the drawing is cut short: it does not end with the group '0 EOF'");
  EXPECT_EQ(Refused("hello\nworld\n"), "d.dxf:1: expected a group code, found 'hello'");
  EXPECT_EQ(Refused("0\nLINE\n"), "d.dxf:2: not a DXF drawing: it does not begin with a section");
  EXPECT_EQ(Refused("AutoCAD Binary DXF\r\n\x1a\n"), "d.dxf: not a DXF drawing");
  EXPECT_EQ(Refused("0\nSECTION\n2\nENTITIES\n0\n"),
            "d.dxf:5: the drawing is cut short: it does not end with the group '0 EOF'");
}

TEST_F(DxfRefusalsTest, EntitiesWithoutTheirNumbers) {
  ExpectRefused({
      {"0 LINE|10 0|20 0|11 1", "d.dxf:16: the LINE has no group 21"},
      {"0 ARC|10 0|20 0|40 1|50 0", "d.dxf:16: the ARC has no group 51"},
      {"0 CIRCLE|10 0|20 0", "d.dxf:16: the CIRCLE has no group 40"},
      {"0 LWPOLYLINE|70 0", "d.dxf:16: the LWPOLYLINE has no group 90"},
      {"0 POLYLINE|0 VERTEX|10 0|0 SEQEND", "d.dxf:18: the VERTEX has no group 20"},
      {"0 LINE|10 0|20 0|11 one|21 0", "d.dxf:22: expected a number, found 'one'"},
      {"0 LINE|10 0|20 0|11 1,5|21 0", "d.dxf:22: expected a number, found '1,5'"},
      {"0 LINE|10 0|20 0|11 nan|21 0", "d.dxf:22: expected a number, found 'nan'"},
      {"0 LINE|10 0|20 0|11|21 0", "d.dxf:22: expected a number, found ''"},
      {"0 LWPOLYLINE|90 many", "d.dxf:18: expected a number, found 'many'"},
  });
}

TEST_F(DxfRefusalsTest, LongValuesAreRead) {
  const std::string line = "|10 0." + std::string(4000, '0') + "|20 0|11 1|21 0";
  EXPECT_EQ(Refused(Drawing("0 LINE|8 " + std::string(2049, 'L') + line)), "read");
}

TEST_F(DxfRefusalsTest, ADrawingThatEndsAfterItsEntitiesIsWhole) {
  const std::string head = "0 SECTION|2 ENTITIES|" + std::string(kLine);
  EXPECT_EQ(Refused(Groups(head + "|0 ENDSEC")), "read");
  EXPECT_EQ(Refused(Groups(head)),
            "d.dxf:16: the drawing is cut short: it does not end with the group '0 EOF'");
}

TEST_F(DxfRefusalsTest, PolylinesOutOfOrder) {
  ExpectRefused({
      {"0 LWPOLYLINE|90 3|10 0|20 0|10 1|20 0", "d.dxf:16: the LWPOLYLINE declares 3 vertices and has 2"},
      {"0 LWPOLYLINE|90 1|10 0|20 0|10 1|20 0", "d.dxf:16: the LWPOLYLINE declares 1 vertices and has 2"},
      {"0 LWPOLYLINE|90 2|10 0|20 0|10 1", "d.dxf:16: the LWPOLYLINE declares 2 vertices and has 1"},
      {"0 LWPOLYLINE|90 2147483647|10 0|20 0",
       "d.dxf:16: the LWPOLYLINE declares 2147483647 vertices and has 1"},
      {"0 LWPOLYLINE|90 -5|10 0|20 0", "d.dxf:16: the LWPOLYLINE declares -5 vertices and has 1"},
      {"0 LWPOLYLINE|10 0|20 0|90 1", "d.dxf:18: group 10 is out of order in LWPOLYLINE"},
      {"0 LWPOLYLINE|90 1|42 1|10 0|20 0", "d.dxf:20: group 42 is out of order in LWPOLYLINE"},
      {"0 LWPOLYLINE|90 1|20 0|10 0", "d.dxf:20: group 20 is out of order in LWPOLYLINE"},
      {"0 LWPOLYLINE|90 2|10 0|10 0|20 0|20 0", "d.dxf:22: group 10 is out of order in LWPOLYLINE"},
      {"0 LWPOLYLINE|90 1|90 1|10 0|20 0", "d.dxf:20: group 90 is out of order in LWPOLYLINE"},
      {"0 VERTEX|10 0|20 0", "d.dxf:16: the VERTEX has no POLYLINE"},
      {"0 POLYLINE|0 LINE|10 0|20 0|11 1|21 0",
       "d.dxf:18: expected a VERTEX or the SEQEND of the POLYLINE, found 'LINE'"},
      {"0 POLYLINE|0 VERTEX|10 0|20 0",
       "d.dxf:24: expected a VERTEX or the SEQEND of the POLYLINE, found 'ENDSEC'"},
  });
}

TEST_F(DxfRefusalsTest, InvalidShapes) {
  ExpectRefused({
      {"0 LINE|10 0|20 0|11 2e7|21 0", "d.dxf:16: the coordinate 2e+07 mm is not within 1e+07 mm"},
      {"0 CIRCLE|10 0|20 0|40 1e300", "d.dxf:16: the coordinate 1e+300 mm is not within 1e+07 mm"},
      {"0 LWPOLYLINE|90 2|10 0|20 0|42 1e300|10 1|20 0", "d.dxf:16: a coordinate is not a number"},
      {"0 LWPOLYLINE|90 2|10 0|20 0|42 1e5|10 1|20 0",
       "d.dxf:16: the arc is a full turn, which has to be two arcs"},
      {"0 TEXT|1 only a text", "d.dxf: has no lines or arcs; left out 1 TEXT"},
      {"0 LINE|10 1|20 1|11 1|21 1", "d.dxf: has no lines or arcs"},
  });
}

TEST_F(DxfRefusalsTest, AUnitThatIsNotKnown) {
  EXPECT_EQ(Refused(Drawing(kLine, "12")),
            "d.dxf: the drawing's unit, $INSUNITS 12, is unknown; give the unit");
  EXPECT_EQ(Refused(Drawing(kLine, "mm")), "d.dxf:8: expected a number, found 'mm'");
  EXPECT_EQ(Refused(Drawing(kLine, "12"), {.unit = "mm"}), "read");
}

}  // namespace
}  // namespace vanzet::contour
