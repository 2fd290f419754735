#include "view/qt/fonts.h"

#include <QApplication>
#include <QWidget>

namespace vanzet::view::qt {
namespace {

struct Face {
  Type type;
  double size;  ///< times that of the system
  QFont::Weight weight;
};

constexpr Face kFaces[] = {
    {Type::kTitle, 1.35, QFont::DemiBold},
    {Type::kGroup, 1.0, QFont::DemiBold},
    {Type::kLetter, 1.0, QFont::Bold},
};

}  // namespace

void SetFont(QWidget& widget, Type type) {
  for (const Face& face : kFaces) {
    if (face.type != type) continue;
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * face.size);
    font.setWeight(face.weight);
    widget.setFont(font);
  }
}

}  // namespace vanzet::view::qt
