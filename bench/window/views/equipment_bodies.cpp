#include <QPainter>
#include <algorithm>

#include "window/qt_text.h"
#include "window/views/equipment_view.h"

/// The work of the equipment view on single bodies: it finds, names, marks and measures them.
namespace vanzet::window {

/// The name of the body under the cursor, beside it.
void EquipmentView::PaintName(QPainter& painter) const {
  if (hovered_.isEmpty()) return;
  const QFontMetricsF metrics(font());
  const QString name = nameOfBody_(hovered_);
  QRectF box(cursor_ + QPointF(14, 12), QSizeF(metrics.horizontalAdvance(name) + 12, metrics.height() + 6));
  box.moveRight(std::min(box.right(), width() - 2.0));
  box.moveBottom(std::min(box.bottom(), height() - 2.0));
  if (box.intersects(covered_)) box.moveRight(covered_.left() - 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().toolTipBase());
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(palette().color(QPalette::ToolTipText));
  painter.drawText(box, Qt::AlignCenter, name);
}

void EquipmentView::PaintMeasured(QPainter& painter) const {
  if (!measure_.from()) return;
  const scene::Camera camera(look_);
  const auto place = [&](const geometry::Point3d& point) {
    const scene::PicturePoint p = camera.Project(point);
    return QPointF(p.x, p.y);
  };
  const auto to = measure_.to() ? measure_.to() : PointAt(cursor_);
  PaintMeasure(painter, place(*measure_.from()), to ? place(*to) : place(*measure_.from()),
               measure_.Text(unit_, to), palette());
}

std::optional<geometry::Point3d> EquipmentView::PointAt(const QPointF& place) const {
  if (model_ == nullptr) return {};
  const scene::Seen seen = scene::SeenAt(*model_, scene::Camera(look_), place.x(), place.y(), looks_);
  return seen.body == nullptr ? std::nullopt : std::optional(seen.point);
}

void EquipmentView::SetMeasuring(bool isOn) {
  isMeasuring_ = isOn;
  measure_.Clear();
  Repaint();
}

QString EquipmentView::SolidAt(const QPointF& place) const {
  if (model_ == nullptr) return {};
  const scene::ModelBody* const body =
      scene::SeenAt(*model_, scene::Camera(look_), place.x(), place.y()).body;
  return body == nullptr ? QString() : ToQString(body->solid);
}

QString EquipmentView::BodyAt(const QPointF& place) const {
  if (model_ == nullptr) return {};
  const scene::ModelBody* const body =
      scene::SeenAt(*model_, scene::Camera(look_), place.x(), place.y(), looks_).body;
  return body == nullptr ? QString() : ToQString(body->name);
}

void EquipmentView::Hover() {
  SetHovered(BodyAt(cursor_));
}

void EquipmentView::SetHovered(const QString& body) {
  if (body == hovered_) return;
  hovered_ = body;
  Invalidate();
  emit BodyHovered(body);
}

QStringList EquipmentView::BodyNames() const {
  QStringList names;
  if (scene_ == nullptr) return names;
  for (const scene::SceneBody& body : scene_->bodies) names << ToQString(body.name);
  return names;
}

scene::BodyLook EquipmentView::LookOf(const QString& body) const {
  return scene::LookAt(looks_, body.toStdString());
}

void EquipmentView::Hide(const QString& body, bool isHidden) {
  looks_[body.toStdString()].isHidden = isHidden;
  Invalidate();
}

void EquipmentView::SetSeenThrough(const QString& body, bool isSeenThrough) {
  looks_[body.toStdString()].isSeenThrough = isSeenThrough;
  Invalidate();
}

void EquipmentView::Mark(const QString& body) {
  if (body == marked_) return;
  marked_ = body;
  Invalidate();
}

void EquipmentView::PointOut(const std::optional<geometry::Point3d>& place, const QStringList& bodies) {
  if (!place && bodies.empty() && !pointedPlace_ && pointedAt_.empty()) return;
  pointedPlace_ = place;
  pointedAt_ = bodies;
  std::set<std::string> names;
  for (const QString& body : bodies) names.insert(body.toStdString());
  if (model_ != nullptr && !names.empty()) {
    look_ = scene::FitPoints(look_, scene::PointsOf(*model_, names), width(), height());
    isFitted_ = false;
  }
  Invalidate();
}

std::optional<QPointF> EquipmentView::PointedPlace() const {
  if (!pointedPlace_) return {};
  const scene::PicturePoint place = scene::Camera(look_).Project(*pointedPlace_);
  return QPointF(place.x, place.y);
}

void EquipmentView::Select(const QString& body) {
  if (body == selected_) return;
  selected_ = body;
  Invalidate();
}

}  // namespace vanzet::window
