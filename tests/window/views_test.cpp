#include <QListWidget>
#include <QPainter>
#include <QWheelEvent>

#include "window/views/snap.h"
#include "window/views/view_frame.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using testing::HasSubstr;
using window::Command;
using window::Snap;
using window::ViewFrame;

class Views : public WindowTest {
 protected:
  static void Wheel(QWidget& widget, const QPointF& place, int notches) {
    QWheelEvent wheel(place, widget.mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
  }
  static void Drag(QWidget& widget, Qt::MouseButton button, const QPoint& from, const QPoint& to) {
    QTest::mousePress(&widget, button, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(QPointF(to)), Qt::NoButton, button,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    QTest::mouseRelease(&widget, button, Qt::NoModifier, to);
  }
  static int Coloured(const QImage& image, const QColor& ground) {
    int count = 0;
    for (int y = 0; y < image.height(); y += 3) {
      for (int x = 0; x < image.width(); x += 3) count += image.pixelColor(x, y) == ground ? 0 : 1;
    }
    return count;
  }
};

TEST_F(Views, OfTheDrawingKeepWhatIsUnderTheWheel) {
  OpenSample(true);
  const QPointF place(100, 80);
  const geometry::Point before = drawing().frame().ToPlane(place);
  const double scale = drawing().frame().scale();
  Wheel(drawing(), place, 3);
  const geometry::Point after = drawing().frame().ToPlane(place);
  EXPECT_GT(drawing().frame().scale(), scale * 1.5);
  EXPECT_NEAR(before.x, after.x, 1e-9);
  EXPECT_NEAR(before.y, after.y, 1e-9);
  actions()[Command::kFit]->trigger();
  EXPECT_NEAR(drawing().frame().scale(), scale, 1e-9);
}

TEST_F(Views, OfTheDrawingAreMovedByDragging) {
  OpenSample(true);
  const QPointF before = drawing().frame().ToScreen({0, 0});
  Drag(drawing(), Qt::LeftButton, {100, 80}, {140, 60});
  EXPECT_EQ(drawing().frame().ToScreen({0, 0}) - before, QPointF(40, -20));
}

TEST_F(Views, OfTheDrawingShowTheLayersThatAreOn) {
  OpenSample(true);
  const QImage before = drawing().grab().toImage();
  QListWidget& list = layers().list();
  ASSERT_EQ(list.item(1)->text(), "Billet_Spindel_1") << "a layer of the drawing";
  list.item(1)->setCheckState(Qt::Unchecked);
  EXPECT_NE(drawing().grab().toImage(), before);
  window->equipmentCommands().Refresh();
  EXPECT_EQ(list.item(1)->checkState(), Qt::Unchecked);
  list.item(1)->setCheckState(Qt::Checked);
  EXPECT_EQ(drawing().grab().toImage(), before);
}

TEST_F(Views, OfTheDrawingShowThePartsOfTheHalfSectionThatAreOn) {
  OpenSample(true);
  const auto hasBody = [this](const char* name) {
    const auto& bodies = drawing().section()->section.bodies;
    return std::ranges::find(bodies, name, &section::SectionBody::name) != bodies.end();
  };
  const auto rows = [this] {
    QStringList texts;
    for (int row = 0; row < layers().list().count(); ++row) texts << layers().list().item(row)->text();
    return texts;
  };
  const auto turn = [this](const QString& text, Qt::CheckState state) {
    layers().list().findItems(text, Qt::MatchExactly).front()->setCheckState(state);
  };
  const QImage all = drawing().grab().toImage();
  EXPECT_TRUE(rows().contains("main jaw 1")) << rows().join(", ").toStdString();
  turn("main jaw 1", Qt::Unchecked);
  EXPECT_FALSE(hasBody("main jaw 1"));
  EXPECT_TRUE(hasBody("main chuck"));
  EXPECT_NE(drawing().grab().toImage(), all);
  turn("Dimensions", Qt::Unchecked);
  EXPECT_TRUE(drawing().section()->section.dimensions.empty());
  window->equipmentCommands().Refresh();
  EXPECT_FALSE(hasBody("main jaw 1")) << "it stays hidden in the next section";
  actions().ActionOf("de")->trigger();
  EXPECT_TRUE(rows().contains(QString::fromUtf8("Maße"))) << rows().join(", ").toStdString();
  actions().ActionOf("en")->trigger();
  turn("main jaw 1", Qt::Checked);
  turn("Dimensions", Qt::Checked);
  EXPECT_EQ(drawing().grab().toImage(), all);
  actions()[Command::kHalfSection]->trigger();
  EXPECT_FALSE(rows().contains("main chuck")) << "a section that is not shown has no parts";
}

TEST_F(Views, OfLayersHaveColoursForTheAppearance) {
  OpenSample(true);
  const auto swatch = [this] { return layers().list().item(0)->icon().pixmap(24).toImage(); };
  const QImage light = swatch();
  actions()[Command::kDark]->trigger();
  EXPECT_NE(swatch(), light);
  actions()[Command::kLight]->trigger();
  EXPECT_EQ(swatch(), light);
}

TEST_F(Views, OfTheEquipmentTurnMoveAndZoom) {
  OpenSample(true);
  const scene::Look before = equipment().look();
  Drag(equipment(), Qt::LeftButton, {100, 80}, {160, 80});
  EXPECT_NE(equipment().look().toward.dx, before.toward.dx);
  Drag(equipment(), Qt::RightButton, {100, 80}, {160, 80});
  EXPECT_NEAR(equipment().look().shiftX, before.shiftX + 60, 1e-9);
  Wheel(equipment(), {100, 80}, 2);
  EXPECT_NEAR(equipment().look().scale, before.scale * 1.44, 1e-9);
}

TEST_F(Views, OfTheEquipmentHaveStandardSidesBySingleKeys) {
  OpenSample(true);
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  equipment().setFocus();
  QTest::keyClick(&equipment(), Qt::Key_2);
  EXPECT_NEAR(equipment().look().toward.dz, 1, 1e-9);
  QTest::keyClick(&equipment(), Qt::Key_7);
  EXPECT_NEAR(equipment().look().toward.dx, 1, 1e-9);
  QTest::keyClick(&equipment(), Qt::Key_6);
  EXPECT_NEAR(equipment().look().toward.dx, -1, 1e-9);
}

TEST_F(Views, OfTheEquipmentAreCutAndBentByTheirSwitches) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  const QImage whole = equipment().grab().toImage();
  actions()[Command::kSection]->trigger();
  const QImage cut = equipment().grab().toImage();
  EXPECT_NE(whole, cut);
  actions()[Command::kPerspective]->trigger();
  EXPECT_NE(equipment().grab().toImage(), cut);
}

/// The bodies that the view names, and what it says of them.
struct Said {
  explicit Said(window::EquipmentView& view) {
    QObject::connect(&view, &window::EquipmentView::BodyHovered,
                     [this](const QString& body) { hovered = body; });
    QObject::connect(&view, &window::EquipmentView::BodySelected,
                     [this](const QString& body) { selected = body; });
  }
  QString hovered, selected;
};

TEST_F(Views, OfTheEquipmentNameTheBodyUnderTheCursor) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  Said said(equipment());
  const scene::Camera camera(equipment().look());
  const auto chuck = camera.Project({-120, 70, 0});
  const QPoint place(static_cast<int>(chuck.x), static_cast<int>(chuck.y));
  const QImage before = equipment().grab().toImage();
  QTest::mouseMove(&equipment(), place);
  EXPECT_TRUE(QTest::qWaitFor([&] { return said.hovered == "main chuck"; })) << said.hovered.toStdString();
  EXPECT_NE(equipment().grab().toImage(), before) << "it is marked";
  Click(equipment(), place);
  EXPECT_EQ(said.selected, "main chuck");
  EXPECT_EQ(equipment().selected(), "main chuck");
  Click(equipment(), {3, 3});
  EXPECT_EQ(said.selected, "");
}

TEST_F(Views, OfTheEquipmentHideBodiesAndSeeThroughThem) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  ASSERT_TRUE(equipment().BodyNames().contains("main chuck"));
  const QImage whole = equipment().grab().toImage();
  equipment().SetSeenThrough("main chuck", true);
  const QImage through = equipment().grab().toImage();
  EXPECT_NE(through, whole);
  equipment().Hide("main chuck", true);
  const QImage hidden = equipment().grab().toImage();
  EXPECT_NE(hidden, through);
  EXPECT_TRUE(equipment().LookOf("main chuck").isHidden);
  Said said(equipment());
  const auto chuck = scene::Camera(equipment().look()).Project({-120, 70, 0});
  Click(equipment(), QPoint(static_cast<int>(chuck.x), static_cast<int>(chuck.y)));
  EXPECT_EQ(said.selected, "") << "a hidden body is not there";
  window->equipmentCommands().Refresh();
  EXPECT_TRUE(equipment().LookOf("main chuck").isHidden) << "it stays hidden in the next scene";
  equipment().Mark("main billet");
  EXPECT_NE(equipment().grab().toImage(), hidden);
}

TEST_F(Views, OfTheDrawingShowTheHalfSectionAndSnapToIt) {
  OpenSample(true);
  ASSERT_NE(drawing().section(), nullptr);
  const QImage with = drawing().grab().toImage();
  double x = 0, y = 0;
  QObject::connect(&drawing(), &window::DrawingView::PositionPicked, [&](double pickedX, double pickedY) {
    x = pickedX;
    y = pickedY;
  });
  // The jaw's outer front corner.
  drawing().Ask(window::DrawingView::Picking::kPosition);
  Click(drawing(), At(-40, 59));
  EXPECT_NEAR(x, -40, 1e-9);
  EXPECT_NEAR(y, 59, 1e-9);
  drawing().Ask(window::DrawingView::Picking::kNone);
  actions()[Command::kHalfSection]->trigger();
  EXPECT_EQ(drawing().section(), nullptr);
  EXPECT_NE(drawing().grab().toImage(), with);
}

TEST_F(Views, OfTheDrawingLetNoLineRunThroughTheTextOfADimension) {
  OpenSample(true);
  actions()[Command::kDark]->trigger();
  // Lines of the drawing are above the section.
  for (const int row : {0, 1}) layers().list().item(row)->setCheckState(Qt::Unchecked);
  drawing().Fit();
  const QImage image = drawing().grab().toImage();
  const auto& shown = *drawing().section();
  const double scale = drawing().frame().scale(), text = window::TextHeight(drawing().font(), scale);
  for (const auto& lines : section::LayOut(shown.section, shown.texts, text).dimensions) {
    const QPointF at = drawing().frame().ToScreen(lines.label.at);
    const int half =
        QFontMetrics(drawing().font()).horizontalAdvance(QString::fromStdString(lines.label.text)) / 2;
    const int bottom = static_cast<int>(at.y()) - 1, top = static_cast<int>(at.y() - text * scale) + 1;
    if (bottom >= image.height()) continue;
    const auto isLine = [&](int x) {
      for (int y = top; y < bottom; ++y) {
        if (image.pixelColor(x, y).lightness() < 80) return false;
      }
      return true;
    };
    for (int x = static_cast<int>(at.x()) - half; x < static_cast<int>(at.x()) + half; ++x)
      EXPECT_FALSE(isLine(x)) << lines.label.text << " at column " << x;
  }
  actions()[Command::kLight]->trigger();
}

TEST_F(Views, OfTheDrawingShowTheTextsOfDimensionsWholeOrCountThem) {
  OpenSample(true);
  for (const int height : {500, 300, 190, 120}) {
    drawing().setFixedHeight(height);
    QCoreApplication::processEvents();
    drawing().Fit();
    const auto& frame = drawing().frame();
    const double text = window::TextHeight(drawing().font(), frame.scale());
    const auto& shown = *drawing().section();
    int below = 0;
    for (const auto& lines : section::LayOut(shown.section, shown.texts, text).dimensions) {
      const double foot = frame.ToScreen(lines.label.at).y();
      EXPECT_GE(foot - text * frame.scale(), 0) << lines.label.text << " at " << height;
      below += foot > drawing().height() ? 1 : 0;
    }
    EXPECT_TRUE(below == 0 || height < 500) << below;
    QImage image(drawing().size(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(drawing().font());
    window::SectionPainter sections(painter, frame, image.size(), drawing().palette());
    EXPECT_EQ(sections.PaintDimensions(shown), below) << height;
    EXPECT_TRUE(below > 0 || height > 120) << "the case of a low view";
  }
}

TEST_F(Views, MeasureBetweenCornersAndOnBodies) {
  OpenSample(true);
  actions()[Command::kMeasure]->trigger();
  Click(drawing(), At(-40, 59));
  EXPECT_EQ(drawing().measure().Text(LengthUnit::kMillimetre), "X -40  \u00D8 118 mm");
  Click(drawing(), At(-102, 80));
  EXPECT_EQ(drawing().measure().Text(LengthUnit::kMillimetre),
            "65.46  \u0394X -62  \u0394\u00D8 42 mm  18.71\u00B0");
  EXPECT_EQ(equipment().selected(), "") << "a click that measures selects nothing";
  actions()[Command::kFront]->trigger();
  const auto place = scene::Camera(equipment().look()).Project({-150, 0, 80});
  Click(equipment(), QPoint(static_cast<int>(place.x), static_cast<int>(place.y)));
  ASSERT_TRUE(equipment().measure().from());
  EXPECT_NEAR(std::hypot(equipment().measure().from()->y, equipment().measure().from()->z), 80, 0.3);
  actions()[Command::kMeasure]->trigger();
  EXPECT_FALSE(drawing().measure().from());
}

TEST_F(Views, MarkTheSameBodyInBoth) {
  OpenSample(true);
  const QImage before = equipment().grab().toImage();
  QTest::mouseMove(&drawing(), At(-70, 40));
  EXPECT_TRUE(QTest::qWaitFor([&] { return equipment().grab().toImage() != before; }));
  EXPECT_EQ(drawing().toolTip(), "main jaw 1");
  Click(drawing(), At(-150, 60));
  EXPECT_EQ(equipment().selected(), "main chuck");
}

TEST_F(Views, OfNothingSayWhatToDo) {
  EXPECT_GT(Coloured(equipment().grab().toImage(), QColor("#fcfdfe")), 20);
}

TEST_F(Views, StandAloneOrTogether) {
  OpenSample();
  actions()[Command::kDrawingOnly]->trigger();
  EXPECT_FALSE(equipment().isVisible());
  actions()[Command::kEquipmentOnly]->trigger();
  EXPECT_TRUE(equipment().isVisible());
  EXPECT_FALSE(drawing().isVisible());
  actions()[Command::kBothViews]->trigger();
  EXPECT_TRUE(drawing().isVisible());
}

geometry::Kurve Circle(double radius) {
  return geometry::Kurve({0, 0}, radius, geometry::ACW);
}

TEST(Chords, StayBesideTheirArcAtEveryScale) {
  for (const int notches : {0, 10, 40}) {
    ViewFrame frame;
    frame.Fit(geometry::Box({-50, -50}, {50, 50}), {800, 600});
    for (int i = 0; i < notches; ++i) frame.ZoomAt({400, 300}, 1.2);
    const double radius = 50 * frame.scale();
    const QPointF middle = frame.ToScreen({0, 0});
    const QPolygonF chords = window::ChordsOf(Circle(50), frame);
    for (qsizetype i = 1; i < chords.size(); ++i) {
      const QPointF way = (chords[i] + chords[i - 1]) / 2 - middle;
      EXPECT_NEAR(std::hypot(way.x(), way.y()), radius, 0.3) << notches;
    }
  }
}

TEST(Chords, AreCutToWhatIsSeen) {
  const QRectF seen(0, 0, 100, 100);
  const QPolygonF across = {{{-1e7, 50}, {1e7, 50}, {1e7, 1e7}}};
  const auto pieces = window::ClipChain(across, seen);
  ASSERT_EQ(pieces.size(), 1U);
  EXPECT_NEAR(pieces[0].front().x(), 0, 1e-6);
  EXPECT_NEAR(pieces[0].back().x(), 100, 1e-6);
  const QPolygonF area = window::ClipArea({{{-1e6, -1e6}, {1e6, -1e6}, {1e6, 1e6}, {-1e6, 1e6}}}, seen);
  EXPECT_EQ(area.boundingRect(), seen);
}

class Snaps : public testing::Test {
 protected:
  Snaps() {
    drawing::ShownGroup group;
    group.curves.push_back({Circle(30), "ring"});
    geometry::Kurve line;
    line.Start({-50, 10});
    line.Add(geometry::Point(50, 10));
    group.curves.push_back({line, "line"});
    places_ = window::SnapPlaces({{"0", {group}}});
  }
  window::SnapPlaces places_;
};

TEST_F(Snaps, GoToEndsIntersectionsAndCentres) {
  const auto end = places_.Near({-49, 11}, 3);
  ASSERT_TRUE(end);
  EXPECT_EQ(end->kind, Snap::Kind::kEnd);
  EXPECT_NEAR(end->point.x, -50, 1e-9);
  const auto crossing = places_.Near({28, 10.5}, 3);
  ASSERT_TRUE(crossing);
  EXPECT_EQ(crossing->kind, Snap::Kind::kIntersection);
  EXPECT_NEAR(crossing->point.x, std::sqrt(800), 1e-6);
  const auto centre = places_.Near({1, 1}, 3);
  ASSERT_TRUE(centre);
  EXPECT_EQ(centre->kind, Snap::Kind::kCentre);
}

TEST_F(Snaps, MeetTheSpindlesAxis) {
  const auto meeting = places_.Near({-29.5, 0.5}, 2);
  ASSERT_TRUE(meeting);
  EXPECT_NEAR(meeting->point.x, -30, 1e-6);
  EXPECT_NEAR(meeting->point.y, 0, 1e-6);
}

TEST_F(Snaps, AreNoneWhereNothingIsNear) {
  EXPECT_FALSE(places_.Near({10, 20}, 3));
}

}  // namespace
}  // namespace vanzet::test
