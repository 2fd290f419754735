#include "view/qt/labels.h"

#include <QApplication>
#include <QWidget>

namespace vanzet::view::qt {
namespace {

struct Face {
  TextRank rank;
  double size;  ///< times that of the system
  QFont::Weight weight;
};

constexpr Face kFaces[] = {
    {TextRank::kTitle, 1.35, QFont::DemiBold},
    {TextRank::kGroup, 1.0, QFont::DemiBold},
    {TextRank::kLetter, 1.0, QFont::Bold},
};

}  // namespace

void SetFont(QWidget& widget, TextRank rank) {
  for (const Face& face : kFaces) {
    if (face.rank != rank) continue;
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * face.size);
    font.setWeight(face.weight);
    widget.setFont(font);
  }
}

}  // namespace vanzet::view::qt
