#include "view/qt/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// Resources of a static library are not registered by themselves. The function must be outside of any
// namespace.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vanzet::view::qt {
namespace {

constexpr const char* kAccent = "#3584e4";

/// The drawing of a file with its lines in `lines`; in one colour where the accent would not be seen.
QByteArray ReadDrawing(const char* file, const QColor& lines, bool isOneColour) {
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
        ReadDrawing(isSelected ? selected_ : plain_, lines, mode != QIcon::Normal && mode != QIcon::Active));
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
