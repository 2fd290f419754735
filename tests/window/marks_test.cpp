#include <QTreeWidget>

#include "window/docks/equipment_pages.h"
#include "window_fixture.h"

namespace vanzet::test {
namespace {

/// A body that is pointed at or selected in one part of the window is marked in all.
class Marks : public WindowTest {
 protected:
  Marks() { OpenSample(true); }

  QTreeWidget& bodies() { return Part<window::BodyDock>().tree(); }
  QTreeWidget& rows() { return definition().tree(); }

  static QTreeWidgetItem* RowIn(const QTreeWidget& tree, const QString& text) {
    return tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
  }
  static bool IsMarked(const QTreeWidget& tree, const QString& text) {
    return RowIn(tree, text)->background(0).style() != Qt::NoBrush;
  }
  static QPoint PlaceIn(QTreeWidget& tree, const QString& text) {
    tree.scrollToItem(RowIn(tree, text));
    return tree.visualItemRect(RowIn(tree, text)).center();
  }
};

TEST_F(Marks, OfTheBodyUnderTheCursorAreInBothTrees) {
  QTest::mouseMove(&drawing(), At(-70, 40));
  EXPECT_TRUE(QTest::qWaitFor([&] { return IsMarked(bodies(), "main jaw 1"); }));
  EXPECT_TRUE(IsMarked(rows(), "Jaws"));
  EXPECT_FALSE(IsMarked(rows(), "Chuck"));
  QTest::mouseMove(&drawing(), At(-150, 60));
  EXPECT_TRUE(QTest::qWaitFor([&] { return IsMarked(bodies(), "main chuck"); }));
  EXPECT_TRUE(IsMarked(rows(), "Chuck"));
  EXPECT_FALSE(IsMarked(bodies(), "main jaw 1"));
  EXPECT_FALSE(IsMarked(rows(), "Jaws"));
}

TEST_F(Marks, OfARowUnderTheCursorAreInBothViews) {
  Part<window::BodyDock>().raise();
  QCoreApplication::processEvents();
  const QImage space = equipment().grab().toImage(), plane = drawing().grab().toImage();
  QTest::mouseMove(bodies().viewport(), PlaceIn(bodies(), "main chuck"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return equipment().grab().toImage() != space; }));
  EXPECT_NE(drawing().grab().toImage(), plane);
}

TEST_F(Marks, OfABodyThatIsClickedStayInAllParts) {
  const QImage plane = drawing().grab().toImage();
  Click(drawing(), At(-150, 60));
  EXPECT_EQ(equipment().selected(), "main chuck");
  EXPECT_TRUE(RowIn(bodies(), "main chuck")->isSelected());
  EXPECT_TRUE(RowIn(rows(), "Chuck")->isSelected());
  EXPECT_NE(drawing().grab().toImage(), plane);
  Click(drawing(), {3, 3});
  EXPECT_EQ(equipment().selected(), "");
  EXPECT_TRUE(bodies().selectedItems().isEmpty());
  EXPECT_TRUE(rows().selectedItems().isEmpty());
}

TEST_F(Marks, OfARowThatIsClickedStayInAllParts) {
  Part<window::BodyDock>().raise();
  QCoreApplication::processEvents();
  const QPoint place = PlaceIn(bodies(), "main billet");
  QTest::mouseClick(bodies().viewport(), Qt::LeftButton, Qt::NoModifier, place);
  EXPECT_EQ(equipment().selected(), "main billet");
  EXPECT_TRUE(RowIn(rows(), "Billet")->isSelected());
}

TEST_F(Marks, AreNoneOfABodyThatIsHidden) {
  const auto names = [this] {
    QStringList found;
    for (const auto& body : drawing().section()->section.bodies) found << QString::fromStdString(body.name);
    return found;
  };
  ASSERT_TRUE(names().contains("main chuck"));
  RowIn(bodies(), "main chuck")->setCheckState(0, Qt::Unchecked);
  EXPECT_FALSE(names().contains("main chuck")) << "the half section has the bodies that are ticked";
  EXPECT_TRUE(names().contains("main billet"));
  RowIn(bodies(), "main chuck")->setCheckState(0, Qt::Checked);
  EXPECT_TRUE(names().contains("main chuck"));
}

}  // namespace
}  // namespace vanzet::test
