#include "window/views/section_painter.h"

#include <QPainterPath>
#include <algorithm>

#include "section/style.h"
#include "window/qt_text.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr double kAround = 64;                       // pixels around the view in which lines are still drawn
constexpr double kOutline = 1.4, kMarkedLine = 3;    // pixels
constexpr int kTint = 110, kPaleTint = 40;           // of 255: how much of a body's colour is seen
constexpr int kHatch = 120, kPaleHatch = 50;         // the same of its hatch
constexpr double kArrowLength = 9, kArrowWidth = 5;  // pixels

QColor ColourOf(const modeller::Colour& colour) {
  return QColor::fromRgbF(static_cast<float>(colour.red), static_cast<float>(colour.green),
                          static_cast<float>(colour.blue));
}

QColor WithAlpha(QColor colour, int alpha) {
  colour.setAlpha(alpha);
  return colour;
}

/// A hatch in pixels, the way round that the section has it.
Qt::BrushStyle HatchOf(const section::SectionBody& body) {
  const double degrees = section::StyleOf(body.kind).Degrees(body.isSub);
  return degrees < 90 ? Qt::BDiagPattern : Qt::FDiagPattern;
}

}  // namespace

std::shared_ptr<const ShownSection> ShownOf(section::Section section, section::SectionTexts texts,
                                            const std::vector<std::string>& paleBodies) {
  auto shown = std::make_shared<ShownSection>();
  for (const section::SectionBody& body : section.bodies) {
    auto& contours = shown->contours.emplace_back();
    for (const geometry::RegionLoop& loop : body.region.loops) {
      contours.emplace_back(geometry::ContourOf(loop));
    }
    shown->isPale.push_back(std::ranges::find(paleBodies, body.name) != paleBodies.end());
  }
  shown->section = std::move(section);
  shown->texts = std::move(texts);
  return shown;
}

std::string PartOf(const std::string& body) {
  return body.substr(0, body.find(','));
}

std::vector<SectionPart> PartsOf(const ShownSection& shown) {
  std::vector<SectionPart> parts;
  const auto add = [&](const std::string& name, const QColor& colour) {
    if (std::ranges::find(parts, name, &SectionPart::name) == parts.end()) parts.push_back({name, colour});
  };
  for (const section::SectionBody& body : shown.section.bodies)
    add(PartOf(body.name), ColourOf(section::InkOf(body.kind)));
  if (!shown.section.datums.empty()) add(kDatumPart, QColor(ToQString(section::kDatumColour)));
  if (!shown.section.dimensions.empty()) add(kDimensionPart, QColor(ToQString(section::kDimensionColour)));
  return parts;
}

std::shared_ptr<const ShownSection> Without(const std::set<std::string>& parts, const ShownSection& shown) {
  auto left = std::make_shared<ShownSection>();
  left->texts = shown.texts;
  for (std::size_t i = 0; i < shown.section.bodies.size(); ++i) {
    if (parts.contains(PartOf(shown.section.bodies[i].name))) continue;
    left->section.bodies.push_back(shown.section.bodies[i]);
    left->contours.push_back(shown.contours[i]);
    left->isPale.push_back(shown.isPale[i]);
  }
  if (!parts.contains(kDatumPart)) left->section.datums = shown.section.datums;
  if (!parts.contains(kDimensionPart)) left->section.dimensions = shown.section.dimensions;
  return left;
}

double TextHeight(const QFont& font, double scale) {
  return QFontMetricsF(font).height() * 0.8 / scale;
}

std::vector<geometry::Kurve> ContoursOf(const ShownSection& shown) {
  std::vector<geometry::Kurve> all;
  for (const auto& contours : shown.contours) all.insert(all.end(), contours.begin(), contours.end());
  return all;
}

SectionPainter::SectionPainter(QPainter& painter, const ViewFrame& frame, const QSizeF& size,
                               const QPalette& palette)
    : painter_(painter),
      frame_(frame),
      size_(size),
      seen_(QRectF(QPointF(0, 0), size).adjusted(-kAround, -kAround, kAround, kAround)),
      palette_(palette) {
  painter_.setRenderHint(QPainter::Antialiasing);
}

void SectionPainter::PaintBodies(const ShownSection& shown, const std::set<std::string>& marked) {
  for (std::size_t i = 0; i < shown.section.bodies.size(); ++i) {
    PaintBody(shown, i, marked.contains(shown.section.bodies[i].name));
  }
}

void SectionPainter::PaintBody(const ShownSection& shown, std::size_t body, bool isMarked) {
  const section::SectionBody& each = shown.section.bodies[body];
  const bool isPale = shown.isPale[body];
  const QColor tint = ColourOf(scene::ColourOf(each.kind));
  const QColor ink = OnGround(ColourOf(section::InkOf(each.kind)), palette_);
  QPainterPath area;
  QPen pen(isMarked ? ColoursFor(palette_).accent : ink, isMarked ? kMarkedLine : kOutline);
  if (isPale) pen.setStyle(Qt::DashLine);
  for (const geometry::Kurve& contour : shown.contours[body]) {
    area.addPolygon(ClipArea(ChordsOf(contour, frame_), seen_));
    area.closeSubpath();
  }
  painter_.fillPath(area, WithAlpha(tint, isPale ? kPaleTint : kTint));
  painter_.fillPath(area, QBrush(WithAlpha(ink, isPale ? kPaleHatch : kHatch), HatchOf(each)));
  painter_.setPen(pen);
  for (const geometry::Kurve& contour : shown.contours[body]) {
    for (const QPolygonF& piece : ClipChain(ChordsOf(contour, frame_), seen_)) painter_.drawPolyline(piece);
  }
  for (const geometry::RegionSpan& span : each.region.loose) {
    painter_.drawLine(frame_.ToScreen(span.p0), frame_.ToScreen(span.p1));
  }
}

int SectionPainter::PaintDimensions(const ShownSection& shown) {
  const double height = TextHeight(painter_.font(), frame_.scale());
  const section::Layout layout = section::LayOut(shown.section, shown.texts, height);
  const QColor colour = ColoursFor(palette_).text;
  const auto isSeen = [this](const section::DimensionLines& lines) {
    return frame_.ToScreen(lines.label.at).y() <= size_.height();
  };
  int leftOut = 0;
  for (const section::DimensionLines& lines : layout.dimensions) {
    if (!isSeen(lines)) {
      ++leftOut;
    } else {
      PaintLines(lines, colour);
    }
  }
  // Texts cover the lines of all dimensions.
  for (const section::DimensionLines& lines : layout.dimensions) {
    if (isSeen(lines)) PaintLabel(lines.label, height, colour);
  }
  if (leftOut > 0) PaintCount(leftOut, colour);
  for (const section::Datum& datum : shown.section.datums) {
    painter_.setPen(QPen(OnGround(QColor(ToQString(section::kDatumColour)), palette_), 2));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(frame_.ToScreen(datum.place), 6, 6);
  }
  return leftOut;
}

void SectionPainter::PaintLines(const section::DimensionLines& lines, const QColor& colour) {
  painter_.setPen(QPen(WithAlpha(colour, 170), 1));
  for (const section::Line& line : lines.thin) {
    const QList<QPointF> ends = {frame_.ToScreen(line.from), frame_.ToScreen(line.to)};
    for (const QPolygonF& piece : ClipChain(QPolygonF(ends), seen_)) painter_.drawPolyline(piece);
  }
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(colour);
  for (const section::Arrow& arrow : lines.arrows) {
    const QPointF tip = frame_.ToScreen(arrow.tip), way(arrow.direction.dx, -arrow.direction.dy);
    const QPointF foot = tip - way * kArrowLength, side = QPointF(-way.y(), way.x()) * (kArrowWidth / 2);
    painter_.drawPolygon(QPolygonF({tip, foot + side, foot - side}));
  }
}

/// In the lower right corner.
void SectionPainter::PaintCount(int count, const QColor& colour) {
  const QString text = QString("+%1").arg(count);
  const QFontMetricsF metrics(painter_.font());
  const double width = metrics.horizontalAdvance(text) + 8;
  const QRectF box(size_.width() - width - 4, size_.height() - metrics.height() - 2, width, metrics.height());
  painter_.setPen(colour);
  painter_.setBrush(ColoursFor(palette_).background);
  painter_.drawRoundedRect(box, 3, 3);
  painter_.drawText(box, Qt::AlignCenter, text);
}

void SectionPainter::PaintLabel(const section::Label& label, double height, const QColor& colour) {
  const QPointF at = frame_.ToScreen(label.at);
  const QString text = ToQString(label.text);
  const double width = QFontMetricsF(painter_.font()).horizontalAdvance(text);
  const QRectF box(at.x() - width / 2 - 2, at.y() - height * frame_.scale(), width + 4,
                   height * frame_.scale());
  if (!box.intersects(seen_)) return;
  painter_.fillRect(box, ColoursFor(palette_).background);
  painter_.setPen(colour);
  painter_.drawText(box, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextDontClip, text);
}

const section::SectionBody* BodyAt(const ShownSection& shown, const geometry::Point& place) {
  const ViewFrame millimetres;
  const QPointF at = millimetres.ToScreen(place);
  for (std::size_t i = shown.section.bodies.size(); i-- > 0;) {
    QPainterPath area;
    for (const geometry::Kurve& contour : shown.contours[i]) area.addPolygon(ChordsOf(contour, millimetres));
    if (area.contains(at)) return &shown.section.bodies[i];
  }
  return nullptr;
}

}  // namespace vanzet::window
