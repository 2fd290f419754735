#include "window/views/view_cube.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "scene/camera.h"
#include "window/actions.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

using geometry::Vector3d;

constexpr int kSize = 84;         // pixels of the widget's side
constexpr double kHalf = 22;      // of the cube's side
constexpr double kCorner = 6;     // of the disc at a corner
constexpr int kLetters = 30;      // of a name, where a side is 100
constexpr double kEdgeOn = 0.12;  // a side that is seen flatter is not shown

struct SideRow {
  Command command;
  Vector3d direction, up;
};
const SideRow kSides[] = {
    {Command::kFront, {0, 0, 1}, {0, 1, 0}}, {Command::kBack, {0, 0, -1}, {0, 1, 0}},
    {Command::kTop, {0, 1, 0}, {0, 0, -1}},  {Command::kBottom, {0, -1, 0}, {0, 0, 1}},
    {Command::kLeft, {-1, 0, 0}, {0, 1, 0}}, {Command::kRight, {1, 0, 0}, {0, 1, 0}},
};

bool IsSame(const Vector3d& a, const Vector3d& b) {
  return (a - b).Magnitude() < 1e-9;
}

}  // namespace

ViewCube::ViewCube(const Texts& texts, QWidget* parent) : QWidget(parent), texts_(texts) {
  setMouseTracking(true);
  resize(sizeHint());
  const auto name = [this] {
    setAccessibleName(texts_(Text::kViewCube));
    MakeParts();
  };
  connect(&texts_, &Texts::Changed, this, name);
  name();
}

QSize ViewCube::sizeHint() const {
  return {kSize, kSize};
}

void ViewCube::Turn(const scene::Look& look) {
  look_ = look;
  MakeParts();
}

QPointF ViewCube::Place(const Vector3d& point) const {
  const Vector3d seen = scene::Camera(look_).Seen(point * kHalf);
  return QPointF(kSize / 2.0 + seen.dx, kSize / 2.0 - seen.dy);
}

void ViewCube::MakeParts() {
  parts_.clear();
  for (const SideRow& side : kSides)
    AddSide(side.direction, side.up, texts_(TextOf(side.command)).remove('&'));
  for (int i = 0; i < 8; ++i) {
    const Vector3d corner((i & 1) != 0 ? 1 : -1, (i & 2) != 0 ? 1 : -1, (i & 4) != 0 ? 1 : -1);
    if (Dot(corner, look_.toward) < 0.5) continue;
    const QPointF middle = Place(corner);
    QPainterPath disc;
    disc.addEllipse(middle, kCorner, kCorner);
    parts_.push_back({corner, disc.toFillPolygon(), middle, {}, texts_(Text::kIso).remove('&')});
  }
  update();
}

void ViewCube::AddSide(const Vector3d& side, const Vector3d& up, const QString& text) {
  if (Dot(side, look_.toward) < kEdgeOn) return;
  const Vector3d right = Cross(up, side);
  const QPolygonF outline({Place(side - right + up), Place(side + right + up), Place(side + right - up),
                           Place(side - right - up)});
  // A side has no room for what is added in brackets.
  parts_.push_back({side, outline, Place(side), text.section(" (", 0, 0), text});
}

QStringList ViewCube::Names() const {
  QStringList names;
  for (const Part& part : parts_) names << part.name;
  names.removeAll(QString());
  return names;
}

const ViewCube::Part* ViewCube::PartAt(const QPointF& place) const {
  const auto found = std::find_if(parts_.rbegin(), parts_.rend(), [&](const Part& part) {
    return part.outline.containsPoint(place, Qt::OddEvenFill);
  });
  return found == parts_.rend() ? nullptr : &*found;
}

std::optional<QPointF> ViewCube::PlaceOf(const Vector3d& direction) const {
  const auto found =
      std::ranges::find_if(parts_, [&](const Part& part) { return IsSame(part.direction, direction); });
  return found == parts_.end() ? std::nullopt : std::optional(found->middle);
}

void ViewCube::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Part& part : parts_) {
    const bool isHovered = hovered_ && IsSame(*hovered_, part.direction);
    if (part.name.isEmpty() && !isHovered) continue;
    const ViewColours& colours = ColoursFor(palette());
    painter.setPen(QPen(colours.faint, 1));
    painter.setBrush(isHovered ? palette().color(QPalette::Highlight) : palette().color(QPalette::Button));
    painter.drawPolygon(part.outline);
    if (!part.name.isEmpty()) PaintSide(painter, part);
  }
}

/// The name of a side is in its plane. As an outline it is smooth at every angle.
void ViewCube::PaintSide(QPainter& painter, const Part& part) const {
  constexpr double kWide = 100, kRoom = 90;
  QTransform onSide;
  const QPolygonF square({{0, 0}, {kWide, 0}, {kWide, kWide}, {0, kWide}});
  if (!QTransform::quadToQuad(square, part.outline, onSide)) return;
  QFont font = this->font();
  font.setPixelSize(kLetters);
  const double width = QFontMetricsF(font).horizontalAdvance(part.name);
  if (width > kRoom) font.setPixelSize(static_cast<int>(kLetters * kRoom / width));
  QPainterPath name;
  name.addText(0, 0, font, part.name);
  name.translate(QPointF(kWide / 2, kWide / 2) - name.boundingRect().center());
  const bool isHovered = hovered_ && IsSame(*hovered_, part.direction);
  painter.fillPath(onSide.map(name),
                   palette().color(isHovered ? QPalette::HighlightedText : QPalette::ButtonText));
}

void ViewCube::mousePressEvent(QMouseEvent* event) {
  const Part* const part = PartAt(event->position());
  if (part == nullptr || event->button() != Qt::LeftButton) return event->ignore();
  emit DirectionChosen(part->direction);
}

void ViewCube::mouseMoveEvent(QMouseEvent* event) {
  const Part* const part = PartAt(event->position());
  hovered_ = part == nullptr ? std::nullopt : std::optional(part->direction);
  setToolTip(part == nullptr ? QString() : part->tip);
  update();
}

void ViewCube::enterEvent(QEnterEvent*) {
  emit Entered();
}

void ViewCube::leaveEvent(QEvent*) {
  hovered_.reset();
  update();
}

}  // namespace vanzet::window
