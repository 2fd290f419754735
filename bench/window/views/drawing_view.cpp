#include "window/views/drawing_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "window/qt_text.h"
#include "window/views/drawing_painter.h"
#include "window/views/ring.h"
#include "window/views/steps.h"

namespace vanzet::window {
namespace {

constexpr double kStep = 1.2;       // of zooming, for one notch of the wheel
constexpr double kNotch = 120;      // eighths of a degree
constexpr double kSnapReach = 12;   // pixels
constexpr double kFigureReach = 8;  // pixels
constexpr double kPointed = 45;     // millimetres that are seen about a place that is pointed at
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
  places_ =
      SnapPlaces(shown_, section() != nullptr ? ContoursOf(*section()) : std::vector<geometry::Kurve>());
  snap_.reset();
  hovered_.clear();
  update();
}

void DrawingView::Fit() {
  frame_.Fit(BoxOfAll(), size());
  if (section() != nullptr && !section()->section.bodies.empty()) FitDimensions();
  isFitted_ = true;
  update();
}

/// Texts keep their height on the screen: the smaller the scale, the more of the section's plane they take.
/// Below a part of the scale that the bodies alone would have, the lowest dimensions stay outside.
void DrawingView::FitDimensions() {
  constexpr double kLeast = 0.4;
  constexpr int kPasses = 8;
  const double least = kLeast * frame_.scale();
  const geometry::Box bodies = BoxOfAll();
  geometry::Box box = bodies;
  for (int pass = 0; pass < kPasses; ++pass) {
    box = WithDimensions(bodies, std::max(frame_.scale(), least));
    frame_.Fit(box, size());
  }
  if (frame_.scale() >= least) return;
  box.min.y = std::max(box.min.y, box.max.y - 0.8 * height() / least);
  frame_.Fit(box, size());
}

geometry::Box DrawingView::BoxOfAll() const {
  geometry::Box box = drawing::BoxOf(all_);
  if (section() != nullptr) box.Insert(section::BoxOf(section()->section));
  return box;
}

geometry::Box DrawingView::WithDimensions(geometry::Box box, double scale) const {
  box.Insert(section::LayOut(section()->section, section()->texts, TextHeight(font(), scale)).box);
  return box;
}

void DrawingView::ShowSection(std::shared_ptr<const ShownSection> section) {
  whole_ = std::move(section);
  hoveredBody_.clear();
  SelectParts();
  emit PartsChanged();
}

void DrawingView::HidePart(const std::string& part, bool isHidden) {
  if (isHidden) {
    hiddenParts_.insert(part);
  } else {
    hiddenParts_.erase(part);
  }
  SelectParts();
}

void DrawingView::SelectParts() {
  section_ = whole_ == nullptr || hiddenParts_.empty() ? whole_ : Without(hiddenParts_, *whole_);
  SelectShown();
  if (isFitted_) Fit();
}

std::vector<SectionPart> DrawingView::parts() const {
  return whole_ == nullptr || !isSectionVisible_ ? std::vector<SectionPart>() : PartsOf(*whole_);
}

void DrawingView::SetSectionVisible(bool isVisible) {
  isSectionVisible_ = isVisible;
  SelectShown();
  if (isFitted_) Fit();
  emit PartsChanged();
}

void DrawingView::Mark(const QString& body) {
  marked_ = body;
  update();
}

std::set<std::string> DrawingView::MarkedBodies() const {
  std::set<std::string> bodies = {MarkedBody().toStdString()};
  for (const QString& body : pointedBodies_) bodies.insert(body.toStdString());
  return bodies;
}

void DrawingView::PointOut(const std::optional<geometry::Point>& place, const QStringList& bodies) {
  pointedAt_ = place;
  pointedBodies_ = bodies;
  if (place) {
    const geometry::Vector2d reach(kPointed, kPointed);
    frame_.Fit(geometry::Box(*place - reach, *place + reach), size());
    isFitted_ = false;
  }
  update();
}

void DrawingView::Select(const QString& body) {
  selected_ = body;
  update();
}

const QString& DrawingView::MarkedBody() const {
  if (!hoveredBody_.isEmpty()) return hoveredBody_;
  return marked_.isEmpty() ? selected_ : marked_;
}

QString DrawingView::BodyAt(const QPointF& place) const {
  const section::SectionBody* const body =
      section() == nullptr ? nullptr : window::BodyAt(*section(), frame_.ToPlane(place));
  return body == nullptr ? QString() : ToQString(body->name);
}

void DrawingView::HoverBody(const QPointF& place) {
  const QString body = BodyAt(place);
  if (body == hoveredBody_) return;
  hoveredBody_ = body;
  setToolTip(nameOfBody_(body));
  update();
  emit BodyHovered(body);
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
  if (!shown_.empty() || section() != nullptr) drawing.PaintAxis();
  SectionPainter sections(painter, frame_, size(), palette());
  if (section() != nullptr) {
    sections.PaintBodies(*section(), MarkedBodies());
    sections.PaintDimensions(*section());
  }
  drawing.PaintLayers(shown_, picking_ == Picking::kFigure ? hovered_ : std::string());
  drawing.PaintScale();
  if (WantsPosition() && underMouse()) {
    drawing.PaintCross(frame_.ToScreen(PickAt(cursor_)));
  }
  PaintMeasured(painter);
  if (pointedAt_) PaintRing(painter, frame_.ToScreen(*pointedAt_));
  if (snap_) drawing.PaintSnap(*snap_);
  if (shown_.empty() && section() == nullptr) drawing.PaintHint(hint_);
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
  } else if (picking_ == Picking::kNone) {
    HoverBody(place);
  }
  Hover(place);
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
  setCursor(picking_ == Picking::kFigure || WantsPosition() ? Qt::CrossCursor : Qt::ArrowCursor);
  if (hasMoved_ || event->button() != Qt::LeftButton) return;
  Hover(event->position());
  if (picking_ == Picking::kNone && !isMeasuring_) emit BodySelected(BodyAt(event->position()));
  AnswerPick();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (picking_ != Picking::kNone || isMeasuring_) return;
  const QString body = BodyAt(event->position());
  if (body.isEmpty()) return Fit();
  emit BodyActivated(body);
}

void DrawingView::leaveEvent(QEvent*) {
  snap_.reset();
  hovered_.clear();
  HoverBody({-1e6, -1e6});
  update();
  emit CursorLeft();
}

/// Finds the pick that a click at the place would answer.
void DrawingView::Hover(const QPointF& place) {
  cursor_ = place;
  const geometry::Point point = frame_.ToPlane(place);
  snap_ = WantsPosition() ? places_.Near(point, kSnapReach / frame_.scale()) : std::nullopt;
  hovered_ = picking_ == Picking::kFigure ? FigureAt(place) : std::string();
  const geometry::Point shown = WantsPosition() ? PickAt(place) : point;
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
  } else if (WantsPosition()) {
    const geometry::Point point = PickAt(cursor_);
    measure_.Click({point.x, point.y, 0});
    update();
  }
}

bool DrawingView::WantsPosition() const {
  return picking_ == Picking::kPosition || (picking_ == Picking::kNone && isMeasuring_);
}

void DrawingView::SetMeasuring(bool isOn) {
  isMeasuring_ = isOn;
  measure_.Clear();
  setCursor(WantsPosition() ? Qt::CrossCursor : Qt::ArrowCursor);
  update();
}

void DrawingView::PaintMeasured(QPainter& painter) const {
  if (!measure_.from() || !isMeasuring_) return;
  const geometry::Point next = PickAt(cursor_);
  const geometry::Point3d to = measure_.to().value_or(geometry::Point3d(next.x, next.y, 0));
  PaintMeasure(painter, frame_.ToScreen({measure_.from()->x, measure_.from()->y}),
               frame_.ToScreen({to.x, to.y}), measure_.Text(unit_, to), palette());
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
