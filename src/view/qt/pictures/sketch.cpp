#include "view/qt/pictures/sketch.h"

#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kNoNumber = Translatable("%1 is not a number.");
constexpr const char* kNoNumberQuoted = Translatable("“%1” is not a number.");

}  // namespace

QPainterPath Rectangle(double left, double bottom, double right, double top) {
  QPainterPath path;
  path.addRect(QRectF(QPointF(left, bottom), QPointF(right, top)));
  return path;
}

QPainterPath Stroke(QPointF from, QPointF to) {
  QPainterPath path;
  path.moveTo(from);
  path.lineTo(to);
  return path;
}

void FindNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const QString& name) {
  if (!sketch.fault.isEmpty() || !values.IsNoNumber(edit)) return;
  sketch.fault = name.isEmpty() ? Translate(kNoNumberQuoted).arg(QString::fromStdString(values.TextOf(edit)))
                                : Translate(kNoNumber).arg(name);
  sketch.wrong = {edit};
}

}  // namespace vanzet::view::qt
