#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSlider>

#include "window/commands/settings_box.h"
#include "window/views/section_bar.h"
#include "window/views/view_cube.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

using geometry::Vector3d;
using window::Command;
using window::DragDeed;
using window::MouseStyle;

/// The equipment as the mouse turns, moves and cuts it.
class Space : public WindowTest {
 protected:
  window::ViewCube& cube() { return Part<window::ViewCube>(); }
  window::SectionBar& section() { return Part<window::SectionBar>(); }

  void Drag(Qt::MouseButton button, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const QPoint from(100, 80), to(160, 100);
    QTest::mousePress(&equipment(), button, keys, from);
    QMouseEvent move(QEvent::MouseMove, to, equipment().mapToGlobal(QPointF(to)), Qt::NoButton, button, keys);
    QApplication::sendEvent(&equipment(), &move);
    QTest::mouseRelease(&equipment(), button, keys, to);
  }

  /// The effect of a drag: it turned, moved or zoomed.
  DragDeed DeedOf(Qt::MouseButton button, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const scene::Look before = equipment().look();
    Drag(button, keys);
    const scene::Look& after = equipment().look();
    if (after.scale != before.scale) return DragDeed::kZoom;
    if (after.toward.dx != before.toward.dx) return DragDeed::kTurn;
    return after.shiftX != before.shiftX ? DragDeed::kMove : DragDeed::kNothing;
  }

  void ClickCube(const Vector3d& direction) {
    const auto place = cube().PlaceOf(direction);
    ASSERT_TRUE(place);
    QTest::mouseClick(&cube(), Qt::LeftButton, Qt::NoModifier, place->toPoint());
  }

  /// How far the bodies that are drawn reach along x and z.
  std::pair<double, double> Reach() {
    std::pair<double, double> reach = {-1e30, -1e30};
    for (const scene::ModelBody& body : equipment().model()->bodies) {
      for (const scene::FacetGroup& group : body.surface.groups)
        reach = {std::max(reach.first, group.box.max.x), std::max(reach.second, group.box.max.z)};
    }
    return reach;
  }

  void ExpectToward(const Vector3d& wanted) {
    EXPECT_NEAR((equipment().look().toward - wanted).Magnitude(), 0, 1e-9);
  }
};

TEST_F(Space, IsSeenFromTheSideOfTheCubeThatIsClicked) {
  OpenSample(true);
  EXPECT_EQ(cube().accessibleName(), "View cube");
  ClickCube({0, 0, 1});
  ExpectToward({0, 0, 1});
  EXPECT_FALSE(cube().PlaceOf({0, 1, 0})) << "the top is seen edge on";
  actions()[Command::kIso]->trigger();
  ClickCube({1, 0, 0});
  ExpectToward({1, 0, 0});
  actions()[Command::kIso]->trigger();
  ClickCube({0, 1, 0});
  ExpectToward({0, 1, 0});
  EXPECT_NEAR(equipment().look().up.dz, -1, 1e-9);
}

TEST_F(Space, IsSeenFromTheCornerThatIsClicked) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  ClickCube({-1, 1, 1});
  const Vector3d& toward = equipment().look().toward;
  EXPECT_LT(toward.dx, -0.4);
  EXPECT_GT(toward.dy, 0.4);
  EXPECT_GT(toward.dz, 0.4);
  ClickCube({0, 1, 0});
  ExpectToward({0, 1, 0});
}

TEST_F(Space, HasACubeWithShortNamesInEveryLanguage) {
  OpenSample(true);
  actions()[Command::kIso]->trigger();
  EXPECT_EQ(cube().Names(), QStringList({"Front", "Top", "Right"}));
  actions().ActionOf("de")->trigger();
  EXPECT_EQ(cube().Names(), QStringList({"Vorn", "Oben", "Rechts"}));
  actions()[Command::kLeft]->trigger();
  EXPECT_EQ(cube().Names(), QStringList({"Links"}));
}

TEST_F(Space, HasNoNameOfABodyOverTheCube) {
  OpenSample(true);
  actions()[Command::kFront]->trigger();
  QString hovered;
  QObject::connect(&equipment(), &window::EquipmentView::BodyHovered,
                   [&](const QString& body) { hovered = body; });
  const auto chuck = scene::Camera(equipment().look()).Project({-120, 70, 0});
  QTest::mouseMove(&equipment(), QPoint(static_cast<int>(chuck.x), static_cast<int>(chuck.y)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return hovered == "main chuck"; }));
  QTest::mouseMove(&cube(), {40, 40});
  EXPECT_TRUE(QTest::qWaitFor([&] { return hovered.isEmpty(); })) << hovered.toStdString();
}

TEST_F(Space, HasACubeThatTurnsWithTheEquipment) {
  OpenSample(true);
  const QImage before = cube().grab().toImage();
  Drag(Qt::LeftButton);
  EXPECT_NE(cube().grab().toImage(), before);
}

TEST_F(Space, IsTurnedByTheButtonsOfTheStyle) {
  OpenSample(true);
  const Qt::MouseButton left = Qt::LeftButton, middle = Qt::MiddleButton, right = Qt::RightButton;
  EXPECT_EQ(DeedOf(left), DragDeed::kTurn);
  EXPECT_EQ(DeedOf(left, Qt::ShiftModifier), DragDeed::kMove);
  EXPECT_EQ(DeedOf(middle), DragDeed::kMove);
  EXPECT_EQ(DeedOf(right), DragDeed::kMove);
  equipment().SetMouseStyle(MouseStyle::kMiddleTurns);
  EXPECT_EQ(DeedOf(left), DragDeed::kNothing);
  EXPECT_EQ(DeedOf(middle), DragDeed::kTurn);
  EXPECT_EQ(DeedOf(middle, Qt::ShiftModifier), DragDeed::kMove);
  EXPECT_EQ(DeedOf(middle, Qt::ControlModifier), DragDeed::kZoom);
  EXPECT_EQ(DeedOf(right), DragDeed::kNothing);
  equipment().SetMouseStyle(MouseStyle::kRightTurns);
  EXPECT_EQ(DeedOf(left), DragDeed::kNothing);
  EXPECT_EQ(DeedOf(right), DragDeed::kTurn);
  EXPECT_EQ(DeedOf(right, Qt::ControlModifier), DragDeed::kZoom);
  EXPECT_EQ(DeedOf(middle), DragDeed::kMove);
}

TEST_F(Space, KeepsTheStyleThatIsChosenInTheSettings) {
  OpenSample(true);
  When([] { return qobject_cast<window::SettingsBox*>(QApplication::activeModalWidget()) != nullptr; },
       [] {
         auto* const box = QApplication::activeModalWidget();
         for (QComboBox* const list : box->findChildren<QComboBox*>()) {
           const int row = list->findData("middle");
           if (row >= 0) list->setCurrentIndex(row);
         }
         box->findChild<QDialogButtonBox*>()->buttons().first()->click();
       });
  actions()[Command::kSettings]->trigger();
  EXPECT_EQ(DeedOf(Qt::MiddleButton), DragDeed::kTurn);
  Restart();
  EXPECT_EQ(equipment().mouseStyle(), MouseStyle::kMiddleTurns);
}

TEST_F(Space, IsCutByThePlaneThatIsChosenAndMoved) {
  OpenSample(true);
  EXPECT_FALSE(section().isVisible());
  actions()[Command::kSection]->trigger();
  ASSERT_TRUE(section().isVisible());
  EXPECT_NEAR(Reach().second, 0, 1e-3);
  auto* const planes = section().findChild<QComboBox*>();
  auto* const place = section().findChild<QSlider*>();
  QTest::keyClick(place, Qt::Key_PageUp);
  const double moved = equipment().model()->section->offset;
  EXPECT_GT(moved, 1);
  EXPECT_NEAR(Reach().second, moved, 1e-3);
  const QImage before = equipment().grab().toImage();
  QTest::keyClick(place, Qt::Key_PageDown);
  EXPECT_NE(equipment().grab().toImage(), before);
  planes->setCurrentIndex(2);
  EXPECT_NEAR(equipment().model()->section->normal.dx, 1, 1e-9);
  const auto [low, high] = equipment().ExtentAlong({1, 0, 0});
  EXPECT_NEAR(equipment().model()->section->offset, (low + high) / 2, 1e-6);
  place->setValue(place->maximum());
  EXPECT_NEAR(Reach().first, high, 1e-3) << "nothing is taken away";
  place->setValue(place->minimum());
  EXPECT_NEAR(equipment().model()->section->offset, low, 1e-6);
  actions()[Command::kSection]->trigger();
  EXPECT_FALSE(section().isVisible());
  EXPECT_FALSE(equipment().model()->section);
}

}  // namespace
}  // namespace vanzet::test
