#include "view/qt/pictures/pictures.h"
#include "view/ids.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>
#include <algorithm>

#include "devices/kinds.h"
#include "devices/outline.h"
#include "view/qt/pictures/outline_check.h"
#include "view/qt/pictures/sketch_painter.h"
#include "view/shared/device_words.h"

namespace vanzet::view::qt {
namespace {

using devices::Device;
using devices::Devices;

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

QRectF BoundsOf(const Sketch& sketch) {
  QRectF bounds;
  for (const Shape& shape : sketch.shapes) {
    if (shape.ink == Ink::kMaterial) bounds = bounds.united(shape.path.boundingRect());
  }
  return bounds;
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
    EXPECT_EQ(sketch.fault, QString()) << example.type;
    EXPECT_FALSE(sketch.isExample) << example.type;
  }
}

TEST(Pictures, FollowTheValues) {
  EXPECT_EQ(BoundsOf(Drawn({.type = 1, .A = 80, .B = 90, .C = 20})), QRectF(-90, 20, 90, 60));
  EXPECT_EQ(BoundsOf(Drawn({.type = 1, .A = 100, .B = 50, .C = 20})), QRectF(-50, 20, 50, 80));
  EXPECT_EQ(BoundsOf(Drawn({.type = 9, .A = 38, .B = 62, .D = 24})), QRectF(0, 0, 62, 38));
}

TEST(Pictures, PutEveryMeasureOnTheOutline) {
  for (const DeviceParams& example : Examples()) {
    const QRectF bounds = BoundsOf(Drawn(example)).adjusted(-1e-9, -200, 1e-9, 1e-9);
    for (const Measure& measure : Drawn(example).measures) {
      EXPECT_TRUE(bounds.contains(measure.from)) << example.type << measure.letter.toStdString();
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
  EXPECT_EQ(labelOf(), QStringLiteral("A 298.2264"));
  qputenv("VANZET_UNIT", "inch");
  EXPECT_EQ(labelOf(), QStringLiteral("A 11.7412"));
  qunsetenv("VANZET_UNIT");
}

TEST(Pictures, TellWhichValuesCannotBe) {
  const Sketch sketch = Drawn({.type = 2, .A = 30, .B = 80, .C = 90, .D = 16, .E = 42, .F = 4});
  EXPECT_EQ(sketch.fault, QStringLiteral("C must be less than B."));
  EXPECT_THAT(sketch.wrong, testing::ElementsAre(control::EditOfLetter('C'), control::EditOfLetter('B')));
  EXPECT_TRUE(sketch.isExample);
  EXPECT_EQ(Drawn({.type = 9, .A = -1, .B = 1, .D = 1}).fault, QStringLiteral("A must be above 0."));
}

TEST(Pictures, TellThatSomethingIsNoNumber) {
  std::vector<Control> controls = PageWith(devices::Find(1)->example);
  controls[1].number.reset();
  const Sketch sketch = SketchOf(2056, PageValues(controls));
  EXPECT_EQ(sketch.fault, QStringLiteral("B is not a number."));
  EXPECT_THAT(sketch.wrong, testing::ElementsAre(control::EditOfLetter('B')));
}

TEST(Pictures, OfMissingValuesAreExamples) {
  const Sketch sketch = Drawn({.type = 9, .A = 10});
  EXPECT_TRUE(sketch.isExample);
  EXPECT_EQ(sketch.fault, QString());
  EXPECT_THAT(sketch.notes.back().toStdString(), testing::HasSubstr("without B"));
}

TEST(Pictures, ListManyMissingLettersByTheFirstAndTheLast) {
  EXPECT_THAT(Drawn({.type = 5}).notes.back().toStdString(), testing::HasSubstr("without A\u2013"));
  EXPECT_THAT(Drawn({.type = 1, .A = 10}).notes.back().toStdString(), testing::HasSubstr("without B"));
}

TEST(Pictures, KeepTheLettersWithinTheirEdges) {
  DeviceParams params = devices::Find(2)->example;
  params.C = 120;
  const Sketch sketch = Drawn(params);
  ASSERT_THAT(sketch.wrong, testing::Contains(control::EditOfLetter('C')));
  QImage image(230, 400, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  Paint(painter, QRectF(image.rect()).adjusted(4, 4, -4, -4), sketch,
        {QPalette(), QFont(), control::EditOfLetter('C'), QStringLiteral("120.12345")});
  for (int y = 0; y < image.height(); ++y) {
    EXPECT_EQ(image.pixelColor(2, y), QColor(Qt::white)) << y;
    EXPECT_EQ(image.pixelColor(227, y), QColor(Qt::white)) << y;
  }
}

TEST(Pictures, KeepTheLettersApartInTheSmallestPicture) {
  for (const DeviceParams& example : Examples()) {
    QImage image(250, 300, QImage::Format_RGB32);
    QPainter painter(&image);
    const auto letters = Paint(painter, image.rect(), Drawn({.type = example.type}), {QPalette(), QFont()});
    EXPECT_FALSE(letters.empty()) << example.type;
    for (std::size_t i = 0; i < letters.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(letters[i].intersects(letters[j])) << example.type;
    }
  }
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
  EXPECT_EQ(BoundsOf(SketchOf(picture::kBilletMain, PageValues(controls))), QRectF(-100, 10, 100, 30));
  EXPECT_EQ(BoundsOf(SketchOf(picture::kBilletSub, PageValues(controls))).normalized(),
            QRectF(0, 10, 100, 30));
}

TEST(Pictures, OfABilletTellWhatTheDialogWouldTakeBack) {
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 81, 0))).fault,
            QStringLiteral("E must not exceed A."));
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 0, 106))).fault,
            QStringLiteral("F must be 0 or at least B + C + D = 107."));
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(80, 100, 2, 5, 80, 107))).fault, QString());
  EXPECT_EQ(SketchOf(picture::kBilletMain, PageValues(Billet(0, 100, 2, 5, 80, 10))).fault, QString())
      << "which is removed";
}

/// The letter of the measure of an edit; empty when the picture does not have it.
QString LetterOf(const Sketch& sketch, std::int32_t edit) {
  const auto measure = std::ranges::find(sketch.measures, edit, &Measure::control);
  return measure == sketch.measures.end() ? QString() : measure->letter;
}

TEST(Pictures, OfABilletDrawAndMarkTheVeryValueThatCannotBe) {
  const Sketch bore = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 45, 0)));
  EXPECT_THAT(bore.wrong, testing::ElementsAre(control::kInnerDiameter));
  EXPECT_EQ(LetterOf(bore, control::kInnerDiameter), QStringLiteral("E"));
  const Sketch bar = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 0, 10)));
  EXPECT_THAT(bar.wrong, testing::ElementsAre(control::kBarLength));
  EXPECT_EQ(LetterOf(bar, control::kBarLength), QStringLiteral("F"));
  const Sketch both = SketchOf(picture::kBilletMain, PageValues(Billet(40, 50, 2, 5, 45, 10)));
  EXPECT_THAT(both.wrong, testing::ElementsAre(control::kBarLength, control::kInnerDiameter));
}

TEST(Pictures, AreDrawnInAnySize) {
  std::vector<std::int32_t> bitmaps;
  for (const Picture& picture : Pictures()) bitmaps.push_back(picture.bitmap);
  for (const Device* const device : Devices()) bitmaps.push_back(device->picture);
  for (const std::int32_t bitmap : bitmaps) {
    const Sketch sketch = SketchOf(bitmap, PageValues({}));
    for (const QSize size : {QSize(1, 1), QSize(40, 30), QSize(500, 400)}) {
      QImage image(size, QImage::Format_RGB32);
      image.fill(Qt::white);
      const QImage blank = image;
      QPainter painter(&image);
      Paint(painter, QRectF(image.rect()), sketch, {QPalette(), QFont(), 0, {}});
      EXPECT_TRUE(image != blank || size.width() < 500) << bitmap;
    }
  }
}

TEST(Pictures, SurviveValuesOfEveryKind) {
  for (const DeviceParams& example : Examples()) {
    for (const double value : {-1e300, -1.0, 0.0, 1e-300, 1.0, 90.0, 180.0, 1e300}) {
      DeviceParams params = example;
      for (const auto real : kDeviceReals) params.*real = value;
      const Sketch sketch = Drawn(params);
      QImage image(200, 200, QImage::Format_RGB32);
      QPainter painter(&image);
      Paint(painter, QRectF(image.rect()), sketch,
            {QPalette(), QFont(), control::EditOfLetter('A'), QStringLiteral("1")});
    }
  }
}

}  // namespace
}  // namespace vanzet::view::qt
