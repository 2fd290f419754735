#include "window/views/equipment_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "scene/coarse.h"
#include "window/opengl/gl_canvas.h"
#include "window/qt_text.h"
#include "window/theme.h"
#include "window/views/ring.h"

namespace vanzet::window {
namespace {

constexpr double kStep = 1.2;    // of zooming, for one notch of the wheel
constexpr double kNotch = 120;   // eighths of a degree
constexpr double kTurn = 0.008;  // radians a pixel
constexpr double kZoom = 0.05;   // notches of the wheel a pixel
constexpr double kClick = 4;     // pixels that the mouse may move in a click
constexpr std::size_t kFacetsInMotion = 100'000;
constexpr int kRest = 30;  // milliseconds before the body under the cursor is looked for

modeller::Colour ColourOf(const QColor& colour) {
  return {colour.redF(), colour.greenF(), colour.blueF()};
}

/// The three axes in a corner.
void PaintAxes(QPainter& painter, const scene::Look& look, const QSize& size, const QPalette& palette) {
  struct Axis {
    const char* name;
    geometry::Vector3d direction;
    QColor colour;
  };
  const Axis axes[] = {{"X", {1, 0, 0}, "#cc3a3a"}, {"Y", {0, 1, 0}, "#3a9a44"}, {"Z", {0, 0, 1}, "#3a6fd0"}};
  constexpr double kLength = 30;
  const QPointF origin(44, size.height() - 44);
  const scene::Camera camera(look);
  for (const Axis& axis : axes) {
    const geometry::Vector3d seen = camera.Seen(axis.direction);
    const QPointF way(seen.dx * kLength, -seen.dy * kLength);
    painter.setPen(QPen(OnGround(axis.colour, palette), 2));
    painter.drawLine(origin, origin + way);
    painter.drawText(QRectF(origin + way * 1.3 - QPointF(8, 8), QSizeF(16, 16)), Qt::AlignCenter, axis.name);
  }
}

}  // namespace

EquipmentView::EquipmentView(By by, QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 100);
  const CanvasSource source = {[this] {
                                 const scene::Look look = ScaleLook(look_, devicePixelRatioF());
                                 return BodyPicture{model_, look, Options(), coarse_};
                               },
                               [this](QPainter& painter) { PaintOverlay(painter); }};
  canvas_ = by == By::kOpenGl ? MakeGlCanvas(source, this) : MakePainterCanvas(source, this);
  LookFrom(scene::View::kIso);
  setMouseTracking(true);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &EquipmentView::Hover);
}

Result<void> EquipmentView::Show(std::shared_ptr<const scene::Scene> scene) {
  scene_ = std::move(scene);
  const auto made = MakeModel();
  if (isFitted_) Fit();
  if (!BodyNames().contains(selected_)) selected_.clear();
  emit BodiesChanged();
  return made;
}

Result<void> EquipmentView::MakeModel() {
  whole_.reset();
  coarseWhole_.reset();
  CutModel();
  if (scene_ == nullptr) return {};
  VANZET_TRY(auto model, scene::ModelOf(*scene_));
  whole_ = coarseWhole_ = std::make_shared<scene::Model>(std::move(model));
  if (CountFacets(*whole_) > kFacetsInMotion)
    coarseWhole_ = std::make_shared<scene::Model>(scene::CoarseModel(*whole_, kFacetsInMotion));
  CutModel();
  return whole_->missing.empty() ? Result<void>() : whole_->missing.front();
}

void EquipmentView::CutModel() {
  const auto cut = [this](const std::shared_ptr<const scene::Model>& whole) {
    const bool isCut = isSection_ && whole != nullptr;
    return isCut ? std::make_shared<const scene::Model>(scene::CutModel(*whole, plane_)) : whole;
  };
  model_ = cut(whole_);
  coarse_ = coarseWhole_ == whole_ ? model_ : cut(coarseWhole_);
  Invalidate();
}

scene::PointSource EquipmentView::Points() const {
  return model_ ? scene::PointsOf(*model_) : scene::PointSource([](const auto&) {});
}

void EquipmentView::LookFrom(scene::View view) {
  look_ = scene::LookFrom(view, look_.isPerspective, Points(), width(), height());
  isFitted_ = true;
  Invalidate();
}

void EquipmentView::LookFrom(const geometry::Vector3d& toward) {
  look_ = scene::LookToward(toward, look_.isPerspective, Points(), width(), height());
  isFitted_ = true;
  Invalidate();
}

void EquipmentView::Fit() {
  look_ = scene::FitPoints(look_, Points(), width(), height());
  isFitted_ = true;
  Invalidate();
}

void EquipmentView::SetPerspective(bool isPerspective) {
  look_.isPerspective = isPerspective;
  if (isFitted_) return Fit();
  Invalidate();
}

void EquipmentView::SetSection(bool isSection) {
  isSection_ = isSection;
  CutModel();
  emit SectionSwitched(isSection);
}

void EquipmentView::SetSectionPlane(const scene::Plane& plane) {
  plane_ = plane;
  CutModel();
}

std::pair<double, double> EquipmentView::ExtentAlong(const geometry::Vector3d& direction) const {
  if (whole_ == nullptr || whole_->bodies.empty()) return {};
  std::pair<double, double> extent = {1e30, -1e30};
  for (const scene::ModelBody& body : whole_->bodies) {
    for (const scene::SurfacePoint& point : body.surface.points) {
      const double along = Dot(direction, geometry::Vector3d(point.x, point.y, point.z));
      extent = {std::min(extent.first, along), std::max(extent.second, along)};
    }
  }
  return extent;
}

void EquipmentView::AskForSolid(bool isAsked) {
  isAsked_ = isAsked;
  setCursor(isAsked ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void EquipmentView::Invalidate() {
  canvas_->Invalidate();
  emit LookChanged();
}

void EquipmentView::Repaint() {
  canvas_->widget().update();
}

scene::DrawOptions EquipmentView::Options() const {
  const ViewColours& colours = ColoursFor(palette());
  const QSize pixels = (size() * devicePixelRatioF()).expandedTo({1, 1});
  scene::DrawOptions options{.width = pixels.width(), .height = pixels.height()};
  options.line = devicePixelRatioF();
  options.style.background = ColourOf(colours.background);
  if (AppearanceOf(palette()) == Appearance::kDark) {
    options.style.ink = {0.04, 0.05, 0.06};
    options.style.mark = {0.95, 0.45, 0.82};
  }
  options.looks = looks_;
  for (const QString& name : QStringList{hovered_, marked_, selected_} + pointedAt_) {
    if (!name.isEmpty()) options.looks[name.toStdString()].isMarked = true;
  }
  return options;
}

void EquipmentView::PaintOverlay(QPainter& painter) {
  if (model_ == nullptr || model_->bodies.empty()) {
    painter.fillRect(rect(), ColoursFor(palette()).background);
    painter.setPen(ColoursFor(palette()).faint);
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, hint_);
    return;
  }
  PaintAxes(painter, look_, size(), palette());
  if (const auto place = PointedPlace()) PaintRing(painter, *place);
  isMeasuring_ ? PaintMeasured(painter) : PaintName(painter);
}

void EquipmentView::resizeEvent(QResizeEvent* event) {
  canvas_->widget().setGeometry(rect());
  if (isFitted_) return Fit();
  look_.shiftX += (event->size().width() - event->oldSize().width()) / 2.0;
  look_.shiftY += (event->size().height() - event->oldSize().height()) / 2.0;
  Invalidate();
}

void EquipmentView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kNotch;
  if (notches == 0) return;
  look_ = scene::ZoomAt(look_, std::pow(kStep, notches), event->position().x(), event->position().y());
  isFitted_ = false;
  Invalidate();
}

void EquipmentView::mousePressEvent(QMouseEvent* event) {
  pressed_ = cursor_ = event->position();
  hasMoved_ = false;
}

void EquipmentView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF by = event->position() - cursor_;
  hasMoved_ = hasMoved_ || (event->position() - pressed_).manhattanLength() > kClick;
  cursor_ = event->position();
  if (event->buttons() == Qt::NoButton) {
    rest_.start();
    if (!hovered_.isEmpty() || isMeasuring_) Repaint();
    return;
  }
  if (!hasMoved_) return;
  Drag(DeedOf(mouseStyle_, event->buttons(), event->modifiers()), by);
}

void EquipmentView::Drag(DragDeed deed, const QPointF& by) {
  switch (deed) {
    case DragDeed::kNothing: return;
    case DragDeed::kTurn: look_ = scene::TurnEye(look_, -by.x() * kTurn, -by.y() * kTurn); break;
    case DragDeed::kMove: look_.shiftX += by.x(), look_.shiftY += by.y(); break;
    case DragDeed::kZoom:
      look_ = scene::ZoomAt(look_, std::pow(kStep, -by.y() * kZoom), pressed_.x(), pressed_.y());
  }
  isFitted_ = false;
  Invalidate();
}

void EquipmentView::mouseReleaseEvent(QMouseEvent* event) {
  if (hasMoved_ || event->button() != Qt::LeftButton) return;
  if (isMeasuring_ && !isAsked_) {
    if (const auto point = PointAt(event->position())) measure_.Click(*point);
    return Repaint();
  }
  if (!isAsked_) {
    const QString body = BodyAt(event->position());
    Select(body);
    emit BodySelected(body);
    return;
  }
  const QString solid = SolidAt(event->position());
  if (!solid.isEmpty()) emit SolidPicked(solid);
}

void EquipmentView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QString body = BodyAt(event->position());
  if (body.isEmpty()) return Fit();
  emit BodyActivated(body);
}

void EquipmentView::leaveEvent(QEvent*) {
  LeaveBodies();
}

void EquipmentView::LeaveBodies() {
  rest_.stop();
  SetHovered({});
}

void EquipmentView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Invalidate();
}

}  // namespace vanzet::window
