#include "view/qt/icons.h"
#include "view/ids.h"

#include <gmock/gmock.h>

#include <QImage>

#include "dialog/tree_nodes.h"

namespace vanzet::view::qt {
namespace {

bool IsEmpty(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) != 0) return false;
    }
  }
  return true;
}

/// Edges that are drawn from the other side differ by a shade.
bool AreAlike(const QImage& a, const QImage& b) {
  constexpr int kShade = 48;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))) > kShade) return false;
    }
  }
  return true;
}

QImage Drawn(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal) {
  return icon.pixmap(QSize(size, size), mode).toImage();
}

TEST(Icons, AreThereForEveryNodeOfTheTree) {
  for (const dialog::TreeNodeRow& node : dialog::TreeNodes()) {
    const QIcon icon = IconOfNode(node.bitmap, node.SelectedBitmap());
    for (const int size : {16, 20, 32, 64}) {
      EXPECT_FALSE(IsEmpty(Drawn(icon, size))) << node.id << " " << size;
      EXPECT_FALSE(IsEmpty(Drawn(icon, size, QIcon::Selected))) << node.id << " " << size;
    }
  }
}

TEST(Icons, AreDrawnFromEveryFileOfTheTable) {
  for (const NodeIcon& row : NodeIcons()) EXPECT_FALSE(IsEmpty(Drawn(IconOf(row.file), 16))) << row.file;
}

TEST(Icons, OfTheSubSpindleLookTheOtherWay) {
  const QImage main = Drawn(IconOfNode(icon::kCollet, icon::Selected(icon::kCollet)), 32);
  EXPECT_TRUE(AreAlike(Drawn(IconOfNode(icon::kColletSub, icon::Selected(icon::kColletSub)), 32),
                       main.mirrored(true, false)));
  EXPECT_FALSE(AreAlike(main, main.mirrored(true, false)));
}

TEST(Icons, StandOutFromTheGroundOfASelectedNode) {
  EXPECT_NE(Drawn(IconOfNode(icon::kChuck, icon::Selected(icon::kChuck)), 32),
            Drawn(IconOfNode(icon::kChuck, icon::Selected(icon::kChuck)), 32, QIcon::Selected));
}

TEST(Icons, OfAnUnknownBitmapAreEmpty) {
  EXPECT_TRUE(IconOfNode(2071, 2071).isNull());
}

TEST(Icons, OfButtonsAreThere) {
  for (const std::int32_t id :
       {control::kOk, control::kHelp, control::kLoad, control::kSave, control::kSelect,
        control::kSelectCylinder, control::kPickSolid, control::kDeleteDevice, control::kSaveDevice,
        control::kSelectParametric, control::kSelectOwn}) {
    EXPECT_FALSE(IsEmpty(Drawn(IconOf(IconOfButton(id, "Text").file), 16))) << id;
  }
}

}  // namespace
}  // namespace vanzet::view::qt
