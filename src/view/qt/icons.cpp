#include "view/qt/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>

// Resources of a static library are not registered by themselves. The function must stand outside of any
// name space.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vanzet::view::qt {
namespace {

// An even number is the plain bitmap, the odd one behind it that of a selected node.
// clang-format off
constexpr NodeIcon kNodeIcons[] = {
    {2072, "bezel",       false}, {2073, "bezel",       false},
    {2074, "billet",      false}, {2075, "billet",      false},
    {2076, "billet",      true }, {2077, "billet",      true },
    {2078, "figure",      false}, {2079, "figure",      false},
    {2080, "figure",      true }, {2081, "figure",      true },
    {2082, "solid",       false}, {2083, "solid",       false},
    {2084, "solid",       true }, {2085, "solid",       true },
    {2086, "center",      false}, {2087, "center",      false},
    {2088, "chuck",       false}, {2089, "chuck",       false},
    {2090, "chuck",       true }, {2091, "chuck",       true },
    {2092, "collet",      false}, {2093, "collet",      false},
    {2094, "collet",      true }, {2095, "collet",      true },
    {2096, "face-driver", false}, {2097, "face-driver", false},
    {2098, "face-driver", true }, {2099, "face-driver", true },
    {2100, "group",       false}, {2101, "group",       false},
    {2102, "jaw",         false}, {2103, "jaw",         false},
    {2104, "jaw",         true }, {2105, "jaw",         true },
    {2106, "mandrel",     false}, {2107, "mandrel",     false},
    {2108, "mandrel",     true }, {2109, "mandrel",     true },
    {2110, "tailstock",   false}, {2111, "tailstock",   false},
    {2112, "datum",       false}, {2113, "datum",       false},
};
// clang-format on

const NodeIcon* FindNodeIcon(std::int32_t bitmap) {
  const auto* const row = std::ranges::find(kNodeIcons, bitmap, &NodeIcon::bitmap);
  return row == std::end(kNodeIcons) ? nullptr : row;
}

constexpr const char* kAccent = "#3584e4";

/// The drawing of a file with its lines in `lines`; in one colour alone where the accent would not be seen.
QByteArray Coloured(const char* file, const QColor& lines, bool isOneColour) {
  RegisterIcons();
  QFile source(QStringLiteral(":/vanzet/icons/%1.svg").arg(QLatin1String(file)));
  if (!source.open(QIODevice::ReadOnly)) return {};
  QByteArray drawing = source.readAll();
  drawing.replace("currentColor", lines.name().toLatin1());
  if (isOneColour) drawing.replace(kAccent, lines.name().toLatin1());
  return drawing;
}

/// Draws a file of share/icons in the colours of the moment, so that an icon follows a change of the theme.
class SvgIcon final : public QIconEngine {
 public:
  SvgIcon(const char* plain, const char* selected, bool isMirrored)
      : plain_(plain), selected_(selected), isMirrored_(isMirrored) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const bool isSelected = mode == QIcon::Selected;
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor lines =
        QApplication::palette().color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    QSvgRenderer drawing(
        Coloured(isSelected ? selected_ : plain_, lines, mode != QIcon::Normal && mode != QIcon::Active));
    painter->save();
    if (isMirrored_) {
      painter->translate(2 * rect.x() + rect.width(), 0);
      painter->scale(-1, 1);
    }
    drawing.render(painter, QRectF(rect));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new SvgIcon(*this); }

 private:
  const char* plain_;
  const char* selected_;
  bool isMirrored_;
};

}  // namespace

std::span<const NodeIcon> NodeIcons() {
  return kNodeIcons;
}

QIcon IconOfNode(std::int32_t bitmap, std::int32_t selectedBitmap) {
  const NodeIcon* const plain = FindNodeIcon(bitmap);
  const NodeIcon* const selected = FindNodeIcon(selectedBitmap);
  if (plain == nullptr || selected == nullptr) return {};
  return QIcon(new SvgIcon(plain->file, selected->file, plain->isMirrored));
}

QIcon IconOf(const char* file) {
  return QIcon(new SvgIcon(file, file, false));
}

}  // namespace vanzet::view::qt
