#include "window/views/drawing_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "window/qt_text.h"
#include "window/views/drawing_painter.h"
#include "window/views/steps.h"

namespace vanzet::window {
namespace {

constexpr double kStep = 1.2;       // of zooming, for one notch of the wheel
constexpr double kNotch = 120;      // eighths of a degree
constexpr double kSnapReach = 12;   // pixels
constexpr double kFigureReach = 8;  // pixels
constexpr double kClick = 4;        // pixels that the mouse may move in a click

}  // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 100);
}

void DrawingView::Show(const drawing::Drawing& drawing) {
  all_ = drawing::ShownOf(drawing, drawing::Window::kDisplay);
  SelectShown();
  if (isFitted_) Fit();
}

void DrawingView::Hide(const std::string& layer, bool isHidden) {
  if (isHidden) {
    hidden_.insert(layer);
  } else {
    hidden_.erase(layer);
  }
  SelectShown();
}

void DrawingView::SelectShown() {
  shown_ = all_;
  std::erase_if(shown_, [&](const auto& entry) { return hidden_.contains(entry.first); });
  places_ = SnapPlaces(shown_);
  snap_.reset();
  hovered_.clear();
  update();
}

void DrawingView::Fit() {
  frame_.Fit(drawing::BoxOf(all_), size());
  isFitted_ = true;
  update();
}

void DrawingView::Ask(Picking picking) {
  picking_ = picking;
  snap_.reset();
  hovered_.clear();
  setCursor(picking == Picking::kNone ? Qt::ArrowCursor : Qt::CrossCursor);
  if (picking != Picking::kNone && underMouse()) Hover(cursor_);
  update();
}

void DrawingView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawingPainter drawing(painter, frame_, size(), palette(), unit_);
  drawing.PaintGround();
  // It would run through the text.
  if (!shown_.empty()) drawing.PaintAxis();
  drawing.PaintLayers(shown_, picking_ == Picking::kFigure ? hovered_ : std::string());
  drawing.PaintScale();
  if (picking_ == Picking::kPosition && underMouse()) {
    drawing.PaintCross(frame_.ToScreen(PickAt(cursor_)));
  }
  if (snap_) drawing.PaintSnap(*snap_);
  if (shown_.empty()) drawing.PaintHint(hint_);
}

void DrawingView::resizeEvent(QResizeEvent*) {
  if (isFitted_) Fit();
}

void DrawingView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kNotch;
  if (notches == 0) return;
  frame_.ZoomAt(event->position(), std::pow(kStep, notches));
  isFitted_ = false;
  Hover(event->position());
  update();
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
  pressed_ = cursor_ = event->position();
  hasMoved_ = false;
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF place = event->position();
  if (event->buttons() != Qt::NoButton) {
    hasMoved_ = hasMoved_ || (place - pressed_).manhattanLength() > kClick;
    if (hasMoved_) {
      frame_.Move(place - cursor_);
      isFitted_ = false;
      setCursor(Qt::ClosedHandCursor);
    }
  }
  Hover(place);
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  setCursor(picking_ == Picking::kNone ? Qt::ArrowCursor : Qt::CrossCursor);
  if (hasMoved_ || event->button() != Qt::LeftButton) return;
  Hover(event->position());
  AnswerPick();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent*) {
  if (picking_ == Picking::kNone) Fit();
}

void DrawingView::leaveEvent(QEvent*) {
  snap_.reset();
  hovered_.clear();
  update();
  emit CursorLeft();
}

/// Finds the pick that a click at the place would answer.
void DrawingView::Hover(const QPointF& place) {
  cursor_ = place;
  const geometry::Point point = frame_.ToPlane(place);
  snap_ = picking_ == Picking::kPosition ? places_.Near(point, kSnapReach / frame_.scale()) : std::nullopt;
  hovered_ = picking_ == Picking::kFigure ? FigureAt(place) : std::string();
  const geometry::Point shown = picking_ == Picking::kPosition ? PickAt(place) : point;
  emit CursorMoved(shown.x, shown.y);
  update();
}

/// The position that a click picks: the place that it snaps to, else one of the grid where that is on, else
/// a round one within the pixel.
geometry::Point DrawingView::PickAt(const QPointF& place) const {
  if (snap_) return snap_->point;
  const double scale = frame_.scale();
  const double step = isOnGrid_ ? GridStep(scale, unit_) : PixelStep(scale, unit_);
  return RoundTo(frame_.ToPlane(place), step, unit_);
}

void DrawingView::AnswerPick() {
  if (picking_ == Picking::kPosition) {
    const geometry::Point point = PickAt(cursor_);
    emit PositionPicked(point.x, point.y);
  } else if (picking_ == Picking::kFigure && !hovered_.empty()) {
    emit FigurePicked(ToQString(hovered_));
  }
}

/// The figure that can be picked with the line nearest to the place; empty when none is near.
std::string DrawingView::FigureAt(const QPointF& place) const {
  const geometry::Point point = frame_.ToPlane(place);
  double nearest = kFigureReach / frame_.scale();
  std::string found;
  for (const auto& [layer, groups] : shown_) {
    for (const drawing::ShownGroup& group : groups) {
      for (const drawing::ShownCurve& curve : group.curves) {
        if (curve.figure.empty() || drawing::IsFigureOfModule(curve.figure)) continue;
        int span = 0;
        const double distance = Dist(curve.curve.Near(point, span), point);
        if (distance >= nearest) continue;
        nearest = distance;
        found = curve.figure;
      }
    }
  }
  return found;
}

}  // namespace vanzet::window
