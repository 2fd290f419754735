#include "window/catalogue/device_picture.h"

#include <QPainter>
#include <QPolygonF>
#include <QRegularExpression>
#include <algorithm>

#include "catalogue/rules.h"
#include "devices/outline.h"
#include "window/qt_text.h"
#include "window/texts.h"
#include "window/theme.h"

namespace vanzet::window {
namespace {

constexpr double kMargin = 3;  // pixels around an outline

/// The section of the translations that has the names of kinds, which the dialog shows.
constexpr const char* kKindSection = "view";

struct KindName {
  const devices::Kind* kind;
  const char* name;
};
constexpr KindName kKindNames[] = {
    {&devices::kChuck, "Chuck"},     {&devices::kCollet, "Collet"},
    {&devices::kMandrel, "Mandrel"}, {&devices::kFaceDriver, "Face driver"},
    {&devices::kJaw, "Jaw"},         {&devices::kCenter, "Center"},
};

/// The shapes of a device with y down: its outline, and what is spun from both sides of its axis.
std::vector<QPolygonF> ShapesOf(const DeviceParams& params) {
  QPolygonF above, below;
  for (const OutlineVertex& vertex : OutlineOf(params)) {
    above << QPointF(vertex.x, -vertex.y);
    below << QPointF(vertex.x, vertex.y);
  }
  return devices::IsJaw(params.type) ? std::vector{above} : std::vector{below, above};
}

}  // namespace

QPixmap ThumbnailOf(const DeviceParams& params, const QSize& size, const QPalette& palette,
                    qreal pixelRatio) {
  QPixmap picture(size * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  if (devices::IsOwn(params.type) || !catalogue::ValuesRefusal(params).empty()) return picture;
  const auto shapes = ShapesOf(params);
  QRectF box;
  for (const QPolygonF& shape : shapes) box |= shape.boundingRect();
  const double scale =
      std::min((size.width() - 2 * kMargin) / box.width(), (size.height() - 2 * kMargin) / box.height());
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(size.width() / 2.0, size.height() / 2.0);
  painter.scale(scale, scale);
  painter.translate(-box.center());
  QPen pen(ColoursFor(palette).text, 1);
  pen.setCosmetic(true);
  painter.setPen(pen);
  for (const QPolygonF& shape : shapes) {
    const bool isCut = &shape == &shapes.back();
    painter.setBrush(isCut ? QBrush(palette.color(QPalette::Mid)) : QBrush());
    painter.drawPolygon(shape);
  }
  return picture;
}

QString InColoursOf(const QPalette& palette, const std::string& svg) {
  if (AppearanceOf(palette) == Appearance::kLight) return ToQString(svg);
  static const QRegularExpression kColour("#[0-9a-f]{6}");
  const QString paper = ToQString(svg);
  QString changed;
  qsizetype end = 0;
  for (auto each = kColour.globalMatch(paper); each.hasNext();) {
    const auto match = each.next();
    const QColor colour(match.captured());
    // Lightness is turned over, so that what is near to paper is near to the dark ground.
    const QColor turned = QColor::fromHsl(std::max(colour.hslHue(), 0), colour.hslSaturation(),
                                          28 + (255 - colour.lightness()) * 200 / 255);
    changed += paper.mid(end, match.capturedStart() - end) + turned.name();
    end = match.capturedEnd();
  }
  return changed + paper.mid(end);
}

QString NameOfKind(const Texts& texts, const devices::Kind& kind) {
  const auto* const row = std::ranges::find(kKindNames, &kind, &KindName::kind);
  return ToQString(texts.translations().Translate(kKindSection, row->name));
}

QString KindTextOf(const Texts& texts, std::int32_t type) {
  const devices::Kind* const kind = devices::KindOf(type);
  if (kind == nullptr) return {};
  const QString name = NameOfKind(texts, *kind);
  if (kind->HasOwn(type)) return name + ", " + texts(Text::kOwnSolid);
  return kind->devices.size() < 2 ? name : name + ' ' + QString::number(kind->ShapeOf(type));
}

}  // namespace vanzet::window
