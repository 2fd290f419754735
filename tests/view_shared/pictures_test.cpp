#include "view/shared/pictures/pictures.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "devices/kinds.h"
#include "devices/outline.h"
#include "view/ids.h"
#include "view/shared/pictures/outline_check.h"
#include "view/shared/pictures/painter.h"
#include "view_shared/recording_canvas.h"

namespace vanzet::view {
namespace {

using devices::Device;
using devices::Devices;
using test::RecordingCanvas;

constexpr Palette kLight = {{0, 0, 0}, {255, 255, 255}, {0, 0, 200}, {250, 250, 250}};

/// The controls of a page of devices, with these values.
std::vector<Control> PageWith(const DeviceParams& params) {
  std::vector<Control> controls;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    const double value = ValueOf(params, letter);
    controls.push_back({.id = control::EditOfLetter(letter),
                        .kind = ControlKind::kEdit,
                        .text = std::to_string(value),
                        .isReal = true,
                        .number = value});
  }
  return controls;
}

Sketch Drawn(const DeviceParams& params) {
  return SketchOf(devices::Find(params.type)->picture, PageValues(PageWith(params)));
}

/// An example of every device of the catalogue.
std::vector<DeviceParams> Examples() {
  std::vector<DeviceParams> examples;
  for (const devices::Kind* const kind : devices::Kinds()) {
    for (const Device& device : kind->devices) examples.push_back(device.example);
  }
  return examples;
}

/// The box around what is cut.
Box BoundsOf(const Sketch& sketch) {
  Path cut;
  for (const Shape& shape : sketch.shapes) {
    if (shape.ink != Ink::kMaterial) continue;
    cut.rings.insert(cut.rings.end(), shape.path.rings.begin(), shape.path.rings.end());
  }
  return BoundsOf(cut);
}

TEST(Pictures, AreThereForEveryTypeOfDevice) {
  for (const Device* const device : Devices()) {
    EXPECT_FALSE(SketchOf(device->picture, PageValues({})).shapes.empty()) << device->code;
  }
}

TEST(Pictures, AreThereForEveryOtherPage) {
  for (const std::int32_t bitmap : {picture::kBezel, picture::kBilletMain, picture::kBilletSub,
                                    picture::kFigure, picture::kSolid, picture::kDatum}) {
    EXPECT_FALSE(SketchOf(bitmap, PageValues({})).shapes.empty()) << bitmap;
  }
  EXPECT_TRUE(SketchOf(0, PageValues({})).shapes.empty());
}

TEST(Pictures, AreSortedByIdAndUnique) {
  EXPECT_TRUE(std::ranges::is_sorted(Pictures(), std::less_equal<>(), &Picture::bitmap));
}

TEST(Pictures, HaveExamplesWithoutFault) {
  for (const DeviceParams& example : Examples()) {
    EXPECT_TRUE(IsSimple(OutlineOf(example))) << example.type;
    const Sketch sketch = Drawn(example);
    EXPECT_EQ(sketch.fault, "") << example.type;
    EXPECT_FALSE(sketch.isExample) << example.type;
  }
}

TEST(Pictures, FollowTheValues) {
  EXPECT_EQ(BoundsOf(Drawn({.type = 1, .A = 80, .B = 90, .C = 20})), (Box{-90, 20, 0, 80}));
  EXPECT_EQ(BoundsOf(Drawn({.type = 1, .A = 100, .B = 50, .C = 20})), (Box{-50, 20, 0, 100}));
  EXPECT_EQ(BoundsOf(Drawn({.type = 9, .A = 38, .B = 62, .D = 24})), (Box{0, 0, 62, 38}));
}

TEST(Pictures, PutEveryMeasureOnTheOutline) {
  for (const DeviceParams& example : Examples()) {
    Box bounds = BoundsOf(Drawn(example));
    bounds = {bounds.left - 1e-9, bounds.top - 200, bounds.right + 1e-9, bounds.bottom + 1e-9};
    for (const Measure& measure : Drawn(example).measures) {
      const Box place = {measure.from.x, measure.from.y, measure.from.x, measure.from.y};
      EXPECT_TRUE(bounds.Contains(place)) << example.type << measure.letter;
    }
  }
}

TEST(Pictures, LabelTheDatumWithFourDecimals) {
  const std::vector<Control> controls = {{.id = control::kClampingOutMain,
                                          .kind = ControlKind::kEdit,
                                          .text = "298.226433430515",
                                          .isReal = true,
                                          .number = 298.226433430515}};
  const auto labelOf = [&] { return SketchOf(picture::kDatum, PageValues(controls)).measures[0].letter; };
  EXPECT_EQ(labelOf(), "A 298.2264");
  setenv("VANZET_UNIT", "inch", 1);
  EXPECT_EQ(labelOf(), "A 11.7412");
  unsetenv("VANZET_UNIT");
}

TEST(Pictures, TellWhichValuesCannotBe) {
  const Sketch sketch = Drawn({.type = 2, .A = 30, .B = 80, .C = 90, .D = 16, .E = 42, .F = 4});
  EXPECT_EQ(sketch.fault, "C must be less than B.");
  EXPECT_THAT(sketch.wrong, testing::ElementsAre(control::EditOfLetter('C'), control::EditOfLetter('B')));
  EXPECT_TRUE(sketch.isExample);
  EXPECT_EQ(Drawn({.type = 9, .A = -1, .B = 1, .D = 1}).fault, "A must be above 0.");
}

TEST(Pictures, TellThatSomethingIsNoNumber) {
  std::vector<Control> controls = PageWith(devices::Find(1)->example);
  controls[1].number.reset();
  const Sketch sketch = SketchOf(2056, PageValues(controls));
  EXPECT_EQ(sketch.fault, "B is not a number.");
  EXPECT_THAT(sketch.wrong, testing::ElementsAre(control::EditOfLetter('B')));
}

TEST(Pictures, OfMissingValuesAreExamples) {
  const Sketch sketch = Drawn({.type = 9, .A = 10});
  EXPECT_TRUE(sketch.isExample);
  EXPECT_EQ(sketch.fault, "");
  EXPECT_THAT(sketch.notes.back(), testing::HasSubstr("without B"));
}

TEST(Pictures, ListManyMissingLettersByTheFirstAndTheLast) {
  EXPECT_THAT(Drawn({.type = 5}).notes.back(), testing::HasSubstr("without A\u2013"));
  EXPECT_THAT(Drawn({.type = 1, .A = 10}).notes.back(), testing::HasSubstr("without B"));
}

TEST(Pictures, KeepTheLettersWithinTheirEdges) {
  DeviceParams params = devices::Find(2)->example;
  params.C = 120;
  const Sketch sketch = Drawn(params);
  ASSERT_THAT(sketch.wrong, testing::Contains(control::EditOfLetter('C')));
  const Box area = {4, 4, 226, 396};
  RecordingCanvas canvas;
  Paint(canvas, area, sketch, kLight, {control::EditOfLetter('C'), "120.12345"});
  ASSERT_FALSE(canvas.plates.empty());
  for (const auto& plate : canvas.plates) EXPECT_TRUE(area.Contains(plate.box));
}

TEST(Pictures, KeepTheLettersApartInTheSmallestPicture) {
  for (const DeviceParams& example : Examples()) {
    RecordingCanvas canvas;
    const auto letters = Paint(canvas, {0, 0, 250, 300}, Drawn({.type = example.type}), kLight, {});
    EXPECT_FALSE(letters.empty()) << example.type;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(letters[i].Intersects(letters[j])) << example.type;
    }
  }
}

TEST(Pictures, EmphasiseTheMeasureOfTheFocusOnTopWithItsValue) {
  RecordingCanvas canvas;
  Paint(canvas, {0, 0, 500, 400}, Drawn(devices::Find(1)->example), kLight,
        {control::EditOfLetter('A'), "82.5"});
  EXPECT_EQ(canvas.texts.back().text, "A = 82.5");
  EXPECT_EQ(canvas.texts.back().colour, kLight.onAccent);
  EXPECT_EQ(canvas.plates.back().fill, kLight.accent);
  EXPECT_EQ(canvas.texts.front().colour, kLight.text);
}

TEST(Pictures, ShowFaultsInTheirColour) {
  RecordingCanvas canvas;
  const Sketch sketch = Drawn({.type = 9, .A = -1, .B = 1, .D = 1});
  Paint(canvas, {0, 0, 500, 400}, sketch, kLight, {});
  const auto fault = std::ranges::find(canvas.texts, sketch.fault, &RecordingCanvas::DrawnText::text);
  ASSERT_NE(fault, canvas.texts.end());
  EXPECT_EQ(fault->colour, FaultColour(kLight));
  EXPECT_NE(FaultColour(kLight), FaultColour({kLight.base, kLight.text, kLight.accent, kLight.onAccent}));
}

TEST(Pictures, HatchWhatIsCutAndTurnYOver) {
  RecordingCanvas canvas;
  Paint(canvas, {0, 0, 500, 400}, Drawn(devices::Find(1)->example), kLight, {});
  ASSERT_EQ(canvas.hatches.size(), 1U);
  ASSERT_EQ(canvas.fills.front().path.rings.size(), 1U) << "the half that is seen from outside";
  EXPECT_LT(BoundsOf(canvas.hatches[0].path).bottom, BoundsOf(canvas.fills.front().path).top)
      << "which is below the one that is cut";
}

TEST(Pictures, OfTheSteadyRestHaveAFrameWithAnOpening) {
  const Sketch sketch = SketchOf(picture::kBezel, PageValues({}));
  const Path& frame = sketch.shapes.front().path;
  const Box box = BoundsOf(frame);
  EXPECT_NEAR(box.left, -62, 0.03);
  EXPECT_NEAR(box.right, 62, 0.03);
  EXPECT_NEAR(box.bottom, 62, 0.03);
  EXPECT_EQ(box.top, -84) << "the ground";
  ASSERT_EQ(frame.rings.size(), 2U);
  EXPECT_EQ(BoundsOf(Path{{frame.rings[1]}}), (Box{-46, -46, 46, 46}));
}

std::vector<Control> Billet(double outer, double length, double front, double rear, double inner,
                            double bar) {
  std::vector<Control> controls;
  std::int32_t id = control::kOuterDiameter;
  for (const double value : {outer, length, front, rear, inner, bar}) {
    controls.push_back({.id = id++, .kind = ControlKind::kEdit, .isReal = true, .number = value});
  }
  return controls;
}

TEST(Pictures, OfABilletFollowItAndLieMirroredOnTheSubSpindle) {
  const auto controls = Billet(80, 100, 2, 5, 20, 0);
  EXPECT_EQ(BoundsOf(SketchOf(picture::kBilletMain, PageValues(controls))), (Box{-100, 10, 0, 40}));
  EXPECT_EQ(BoundsOf(SketchOf(picture::kBilletSub, PageValues(controls))), (Box{0, 10, 100, 40}));
}

TEST(Pictures, OfABilletTellWhatTheDialogWouldTakeBack) {
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 81, 0))).fault,
            "E must not exceed A.");
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 0, 106))).fault,
            "F must be 0 or at least B + C + D = 107.");
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 80, 107))).fault, "");
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(0, 100, 2, 5, 80, 10))).fault, "")
      << "which is removed";
}

/// The letter of the measure of an edit; empty when the picture does not have it.
std::string LetterOf(const Sketch& sketch, std::int32_t edit) {
  const auto measure = std::ranges::find(sketch.measures, edit, &Measure::control);
  return measure == sketch.measures.end() ? "" : measure->letter;
}

TEST(Pictures, OfABilletDrawAndMarkTheVeryValueThatCannotBe) {
  const Sketch bore = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 45, 0)));
  EXPECT_THAT(bore.wrong, testing::ElementsAre(control::kInnerDiameter));
  EXPECT_EQ(LetterOf(bore, control::kInnerDiameter), "E");
  const Sketch bar = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 0, 10)));
  EXPECT_THAT(bar.wrong, testing::ElementsAre(control::kBarLength));
  EXPECT_EQ(LetterOf(bar, control::kBarLength), "F");
  const Sketch both = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 45, 10)));
  EXPECT_THAT(both.wrong, testing::ElementsAre(control::kBarLength, control::kInnerDiameter));
}

TEST(Pictures, AreDrawnInAnySize) {
  std::vector<std::int32_t> bitmaps;
  for (const Picture& picture : Pictures()) bitmaps.push_back(picture.bitmap);
  for (const Device* const device : Devices()) bitmaps.push_back(device->picture);
  for (const std::int32_t bitmap : bitmaps) {
    const Sketch sketch = SketchOf(bitmap, PageValues({}));
    for (const Box& area : {Box{0, 0, 1, 1}, Box{0, 0, 40, 30}, Box{0, 0, 500, 400}}) {
      RecordingCanvas canvas;
      Paint(canvas, area, sketch, kLight, {});
      EXPECT_TRUE(!canvas.strokes.empty() || area.right < 500) << bitmap;
    }
  }
}

TEST(Pictures, SurviveValuesOfEveryKind) {
  for (const DeviceParams& example : Examples()) {
    for (const double value : {-1e300, -1.0, 0.0, 1e-300, 1.0, 90.0, 180.0, 1e300}) {
      DeviceParams params = example;
      for (const auto real : kDeviceReals) params.*real = value;
      RecordingCanvas canvas;
      Paint(canvas, {0, 0, 200, 200}, Drawn(params), kLight, {control::EditOfLetter('A'), "1"});
    }
  }
}

}  // namespace
}  // namespace vanzet::view
