#include "api/host_fixture.h"
#include "drawing/picture.h"
#include "macro/billet_drawing.h"
#include "store/billet_records.h"
#include "store/billet_vdm.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr DeviceParams kChuck = {.type = 1, .A = 100, .B = 60, .C = 25};
constexpr DeviceParams kJaw = {.type = 9, .A = 40, .B = 25, .D = 18};
constexpr DeviceParams kCollet = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
constexpr DatumRecord kDatum = {
    .clampingOutMain = 60, .clampingOutSub = 30, .originMain = 20, .originSub = -15};

BilletRecord BoredBar() {
  BilletRecord billet;
  billet.type = 1;
  billet.partLength = 100;
  billet.outerDiameter = 80;
  billet.innerDiameter = 30;
  billet.barLength = 200;
  billet.frontAllowance = 2;
  billet.rearAllowance = 3;
  return billet;
}

/// The module's stores and generators over a project of the workbench, with a definition in it.
class DefinitionDrawing : public HostTest {
 protected:
  DefinitionDrawing() : HostTest("[environment]\nHideBilletOut = 1\n") {
    BilletVdm(1000).ReOrg([](BilletVdm&, bool) {});
  }

  /// What the board shows of a billet and a datum, drawn from what the definition holds.
  void DrawWhatIsStored() {
    BilletRecord billet;
    DatumRecord datum;
    ASSERT_EQ(ReadBillet(0, 0, billet), 0);
    ASSERT_EQ(ReadDatum(0, datum), 0);
    DrawBillet(billet, 0, datum.originMain);
    for (const std::int32_t spindle : {0, 1}) DrawBilletOutMarks(datum, spindle);
  }

  const drawing::Drawing& Drawn() const { return host->board.drawing(); }
};

TEST_F(DefinitionDrawing, KeepsChuckJawColletBilletAndDatumAcrossRuns) {
  EXPECT_EQ(WriteClampDevice(0, 0, "Chuck 200", kChuck), 0);
  EXPECT_EQ(WriteClampOptions(0, 0, true, 4), 0);
  EXPECT_EQ(WriteJaw(0, 0, "Soft jaw", kJaw), 0);
  EXPECT_EQ(WriteClampDevice(0, 1, "Collet 60", kCollet), 0);
  EXPECT_EQ(WriteBillet(0, 0, BoredBar()), 0);
  EXPECT_EQ(WriteDatum(0, kDatum), 0);
  Restart();
  std::string name;
  DeviceParams device;
  EXPECT_EQ(ReadClampDevice(0, 0, name, device), 0);
  EXPECT_EQ(name, "Chuck 200");
  EXPECT_EQ(device, kChuck);
  EXPECT_EQ(ReadJaw(0, 0, name, device), 0);
  EXPECT_EQ(device, kJaw);
  EXPECT_EQ(ReadClampDevice(0, 1, name, device), 0);
  EXPECT_EQ(device, kCollet);
  bool innerChucking = false;
  std::int32_t jaws = 0;
  EXPECT_EQ(ReadClampOptions(0, 0, innerChucking, jaws), 0);
  EXPECT_TRUE(innerChucking);
  EXPECT_EQ(jaws, 4);
  BilletRecord billet;
  EXPECT_EQ(ReadBillet(0, 0, billet), 0);
  EXPECT_EQ(billet.barLength, 200);
  DatumRecord datum;
  EXPECT_EQ(ReadDatum(0, datum), 0);
  EXPECT_EQ(datum.originSub, -15);
  EXPECT_THAT(panel.lines, IsEmpty());
}

TEST_F(DefinitionDrawing, ShowsBilletAndMarksInTheirLayers) {
  WriteBillet(0, 0, BoredBar());
  WriteDatum(0, kDatum);
  DrawWhatIsStored();
  EXPECT_THAT(panel.lines, IsEmpty());
  ASSERT_TRUE(Drawn().HasFigure("BilletM"));
  const drawing::Figure& billet = Drawn().figures.at("BilletM");
  EXPECT_THAT(billet.strokes, SizeIs(9));
  EXPECT_THAT(billet.insertions, SizeIs(1));
  for (const drawing::Stroke& stroke : billet.strokes) {
    EXPECT_EQ(stroke.layer, "Billet_Spindel_1");
    EXPECT_EQ(stroke.pen.colour->name, "magenta");
  }
  EXPECT_THAT(Drawn().figures.at("ZOffsetMain").strokes, SizeIs(3));
  EXPECT_THAT(Drawn().figures.at("ZOffsetSub").insertions, SizeIs(1));
  for (const auto& [layer, x] : {std::pair{"Billet_out_HS", -40.0}, std::pair{"Billet_out_GS", -45.0}}) {
    const auto line = Drawn().lines.find({layer, -100});
    ASSERT_NE(line, Drawn().lines.end()) << layer;
    EXPECT_NEAR(line->second.line.p.x, x, 1e-9);
    EXPECT_EQ(line->second.pen.style->name, "dot");
    EXPECT_EQ(line->second.pen.colour->name, "grey");
  }
  EXPECT_EQ(host->board.layer(), "0") << "the layer that was current before";
}

TEST_F(DefinitionDrawing, LooksLikeThis) {
  WriteBillet(0, 0, BoredBar());
  WriteDatum(0, kDatum);
  DrawWhatIsStored();
  EXPECT_GOLDEN(*drawing::PictureSvg(Drawn(), {}), "closed_loop/billet_and_datum.svg");
}

TEST_F(DefinitionDrawing, IsRenewedAndLeavesNothingOfTheOldOne) {
  WriteBillet(0, 0, BoredBar());
  WriteDatum(0, kDatum);
  DrawWhatIsStored();
  const std::string first = *drawing::PictureSvg(Drawn(), {});
  DrawWhatIsStored();
  EXPECT_EQ(*drawing::PictureSvg(Drawn(), {}), first);
  WriteBillet(0, 0, BilletRecord());
  WriteDatum(0, DatumRecord());
  DrawWhatIsStored();
  EXPECT_FALSE(Drawn().HasFigure("BilletM"));
  EXPECT_FALSE(Drawn().HasFigure("ZOffsetMain"));
  EXPECT_TRUE(Drawn().lines.empty());
}

}  // namespace
}  // namespace vanzet::test
