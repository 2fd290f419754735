#include "window/views/equipment_view.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPainter>
#include <QThreadPool>
#include <cmath>

#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr double kStep = 1.2;    // of zooming, for one notch of the wheel
constexpr double kNotch = 120;   // eighths of a degree
constexpr double kTurn = 0.008;  // radians a pixel
constexpr double kClick = 4;     // pixels that the mouse may move in a click
constexpr int kStillness = 140;  // milliseconds before a smooth picture is made
constexpr int kRest = 30;        // milliseconds before the body under the cursor is looked for
constexpr double kFrame = 40;    // milliseconds that a quick picture may take
constexpr double kCoarsest = 4;  // pixels that become one at most
constexpr double kPixels = 1e6;

modeller::Colour ColourOf(const QColor& colour) {
  return {colour.redF(), colour.greenF(), colour.blueF()};
}

QImage ImageOf(const scene::Picture& picture) {
  return QImage(picture.bytes.data(), picture.width, picture.height, qsizetype{picture.width} * 3,
                QImage::Format_RGB888)
      .copy();
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

EquipmentView::EquipmentView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 100);
  LookFrom(scene::View::kIso);
  stillness_.setSingleShot(true);
  stillness_.setInterval(kStillness);
  connect(&stillness_, &QTimer::timeout, this, &EquipmentView::DrawSmoothly);
  setMouseTracking(true);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &EquipmentView::Hover);
}

EquipmentView::~EquipmentView() {
  // A picture that is being made calls this view when it is done.
  QThreadPool::globalInstance()->waitForDone();
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
  model_.reset();
  Invalidate();
  if (scene_ == nullptr) return {};
  VANZET_TRY(auto model, scene::ModelOf(*scene_, isSection_));
  model_ = std::make_shared<scene::Model>(std::move(model));
  return model_->missing.empty() ? Result<void>() : model_->missing.front();
}

void EquipmentView::LookFrom(scene::View view) {
  const auto points = model_ ? scene::PointsOf(*model_) : std::vector<geometry::Point3d>();
  look_ = scene::LookFrom(view, look_.isPerspective, points, width(), height());
  isFitted_ = true;
  Invalidate();
}

void EquipmentView::Fit() {
  const auto points = model_ ? scene::PointsOf(*model_) : std::vector<geometry::Point3d>();
  look_ = scene::FitPoints(look_, points, width(), height());
  isFitted_ = true;
  Invalidate();
}

void EquipmentView::SetPerspective(bool isPerspective) {
  look_.isPerspective = isPerspective;
  if (isFitted_) return Fit();
  Invalidate();
}

Result<void> EquipmentView::SetSection(bool isSection) {
  isSection_ = isSection;
  return MakeModel();
}

void EquipmentView::AskForSolid(bool isAsked) {
  isAsked_ = isAsked;
  setCursor(isAsked ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void EquipmentView::Invalidate() {
  ++generation_;
  isDue_ = true;
  isSmooth_ = false;
  stillness_.start();
  update();
}

scene::DrawOptions EquipmentView::Options() const {
  const ViewColours& colours = ColoursFor(palette());
  scene::DrawOptions options{.width = std::max(1, static_cast<int>(width() * devicePixelRatioF())),
                             .height = std::max(1, static_cast<int>(height() * devicePixelRatioF()))};
  options.line = devicePixelRatioF();
  options.style.background = ColourOf(colours.background);
  if (AppearanceOf(palette()) == Appearance::kDark) {
    options.style.ink = {0.04, 0.05, 0.06};
    options.style.mark = {0.95, 0.45, 0.82};
  }
  options.looks = looks_;
  for (const QString& name : {hovered_, marked_, selected_}) {
    if (!name.isEmpty()) options.looks[name.toStdString()].isMarked = true;
  }
  return options;
}

void EquipmentView::DrawQuickly() {
  scene::DrawOptions options = Options();
  const double pixels = double{1} * options.width * options.height / kPixels;
  const double coarse = std::clamp(std::sqrt(pixels * pixelMillis_ / kFrame), 1.0, kCoarsest);
  const double factor = devicePixelRatioF() / coarse;
  options.width = std::max(1, static_cast<int>(width() * factor));
  options.height = std::max(1, static_cast<int>(height() * factor));
  options.line = factor;
  options.samples = 1;
  QElapsedTimer clock;
  clock.start();
  picture_ = ImageOf(scene::Draw(*model_, ScaleLook(look_, factor), options));
  pixelMillis_ = double(clock.nsecsElapsed()) / 1e6 / (double{1} * options.width * options.height / kPixels);
  isDue_ = false;
}

void EquipmentView::DrawSmoothly() {
  if (model_ == nullptr) return;
  const auto draw = [this, model = model_, look = ScaleLook(look_, devicePixelRatioF()), options = Options(),
                     generation = generation_] {
    const QImage picture = ImageOf(scene::Draw(*model, look, options));
    QMetaObject::invokeMethod(
        this, [=, this] { ShowSmooth(generation, picture); }, Qt::QueuedConnection);
  };
  QThreadPool::globalInstance()->start(draw);
}

void EquipmentView::ShowSmooth(int generation, const QImage& picture) {
  if (generation != generation_) return;
  picture_ = picture;
  isDue_ = false;
  isSmooth_ = true;
  update();
}

void EquipmentView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.fillRect(rect(), ColoursFor(palette()).background);
  if (model_ == nullptr || model_->bodies.empty()) {
    painter.setPen(ColoursFor(palette()).faint);
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, hint_);
    return;
  }
  if (isDue_) DrawQuickly();
  painter.drawImage(QRectF(rect()), picture_);
  PaintAxes(painter, look_, size(), palette());
  isMeasuring_ ? PaintMeasured(painter) : PaintName(painter);
}

void EquipmentView::resizeEvent(QResizeEvent* event) {
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
    if (!hovered_.isEmpty() || isMeasuring_) update();
    return;
  }
  if (!hasMoved_) return;
  const bool isTurn = event->buttons() == Qt::LeftButton && !(event->modifiers() & Qt::ShiftModifier);
  if (isTurn) {
    look_ = scene::TurnEye(look_, -by.x() * kTurn, -by.y() * kTurn);
  } else {
    look_.shiftX += by.x();
    look_.shiftY += by.y();
  }
  isFitted_ = false;
  Invalidate();
}

void EquipmentView::mouseReleaseEvent(QMouseEvent* event) {
  if (hasMoved_ || event->button() != Qt::LeftButton) return;
  if (isMeasuring_ && !isAsked_) {
    if (const auto point = PointAt(event->position())) measure_.Click(*point);
    return update();
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
  rest_.stop();
  SetHovered({});
}

void EquipmentView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Invalidate();
}

scene::Look ScaleLook(scene::Look look, double factor) {
  look.scale *= factor;
  look.shiftX *= factor;
  look.shiftY *= factor;
  return look;
}

}  // namespace vanzet::window
