#include "window/theme.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <string_view>

namespace vanzet::window {
namespace {

struct IconRow {
  std::string_view name;
  const char* shapes;  ///< of SVG, in a square of 24; `@` is the accent
};

// clang-format off
constexpr IconRow kIcons[] = {
    { "new",         R"(<path d="M6 3h8l4 4v14H6z"/><path d="M14 3v4h4"/><path stroke="@" d="M12 11v6M9 14h6"/>)" },
    { "open",        R"(<path d="M3 19V6h6l2 2h8v3"/><path d="M3 19l3-8h16l-3 8z"/>)" },
    { "save",        R"(<path d="M12 3v11M8 10l4 4 4-4" stroke="@"/><path d="M4 15v5h16v-5"/>)" },
    { "load",        R"(<path d="M12 14V3M8 7l4-4 4 4" stroke="@"/><path d="M4 15v5h16v-5"/>)" },
    { "quit",        R"(<path d="M10 4H5v16h5M14 8l4 4-4 4M18 12H9"/>)" },
    { "definition",  R"(<circle cx="12" cy="12" r="8.5"/><circle cx="12" cy="12" r="2.6" stroke="@"/><path d="M10.4 3.8v4.4h3.2V3.8M4 14.2l3.9-2.2 1.6 2.7-3.8 2.2M20 14.2L16.100 12l-1.6 2.7 3.8 2.2" />)" },
    { "upgrade",     R"(<path d="M4 12a8 8 0 0 1 14-5.300M20 12a8 8 0 0 1-14 5.300"/><path stroke="@" d="M18 2.500v4.500h-4.500M6 21.500V17h4.500"/>)" },
    { "undo",        R"(<path d="M9 7h6a5 5 0 0 1 0 10H8"/><path stroke="@" d="M9 3L5 7l4 4"/>)" },
    { "fit",         R"(<path d="M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5"/><rect x="8.500" y="8.500" width="7" height="7" stroke="@"/>)" },
    { "refresh",     R"(<path d="M19 8a8 8 0 1 0 1 6"/><path stroke="@" d="M20 3v5.500h-5.500"/>)" },
    { "section",     R"(<path d="M4 19V9l8-5 8 5v10z" opacity="0.450"/><path d="M12 4v15h8V9z" fill="@" fill-opacity="0.250" stroke="@"/>)" },
    { "perspective", R"(<path d="M3 5l12 3v8L3 19z"/><path stroke="@" d="M15 8h6v8h-6"/>)" },
    { "front",       R"(<path d="M4 8h12v12H4z" fill="@" fill-opacity="0.350" stroke="@"/><path d="M4 8l4-4h12v12l-4 4M16 8l4-4"/>)" },
    { "top",         R"(<path d="M4 8l4-4h12l-4 4z" fill="@" fill-opacity="0.350" stroke="@"/><path d="M4 8v12h12V8M20 4v12l-4 4"/>)" },
    { "right",       R"(<path d="M16 8l4-4v12l-4 4z" fill="@" fill-opacity="0.350" stroke="@"/><path d="M16 8H4v12h12M4 8l4-4h12"/>)" },
    { "left",        R"(<path d="M16 8H4v12h12zM4 8l4-4h12v12l-4 4M16 8l4-4"/><path d="M4 8v12" stroke="@" stroke-width="3"/>)" },
    { "back",        R"(<path d="M8 4h12v12" stroke="@" stroke-width="3"/><path d="M4 8h12v12H4zM4 8l4-4M16 20l4-4M16 8l4-4"/>)" },
    { "bottom",      R"(<path d="M4 20h12l4-4" stroke="@" stroke-width="3"/><path d="M16 20V8H4v12M4 8l4-4h12v12M16 8l4-4"/>)" },
    { "iso",         R"(<path d="M12 3l8 4.500v9L12 21l-8-4.500v-9z"/><path d="M4 7.500l8 4.500 8-4.500M12 12v9"/>)" },
    { "layers",      R"(<path stroke="@" d="M12 4l9 5-9 5-9-5z"/><path d="M3 13l9 5 9-5"/>)" },
    { "grid",        R"(<path d="M4 9h16M4 15h16M9 4v16M15 4v16"/><circle cx="15" cy="9" r="2.200" stroke="@"/>)" },
    { "drawing",     R"(<path d="M4 20V4M4 20h16"/><path stroke="@" d="M8 16V9h5v3h4v4z"/>)" },
    { "equipment",   R"(<path d="M4 8v8a3 4 0 0 0 4 3h1V5H8a3 4 0 0 0-4 3z"/><path stroke="@" d="M9 9h11v6H9"/>)" },
    { "export",      R"(<path d="M5 12v8h14v-8"/><path stroke="@" d="M12 15V3M8 7l4-4 4 4"/>)" },
    { "picture",     R"(<rect x="3" y="5" width="18" height="14" rx="1.500"/><circle cx="8" cy="10" r="1.600" stroke="@"/><path d="M4 18l5.500-5 3.500 3 3-3 4.500 4"/>)" },
    { "body",        R"(<ellipse cx="12" cy="6" rx="7" ry="2.600" stroke="@"/><path d="M5 6v12c0 1.400 3 2.600 7 2.600s7-1.200 7-2.600V6"/>)" },
    { "help",        R"(<circle cx="12" cy="12" r="9"/><path stroke="@" d="M9.300 9.500a2.700 2.700 0 1 1 4 2.400c-.9.500-1.300 1-1.300 2M12 16.800v.300"/>)" },
    { "about",       R"(<circle cx="12" cy="12" r="9"/><path stroke="@" d="M12 11v6M12 7.500v.300"/>)" },
    { "copy",        R"(<rect x="8" y="8" width="12" height="12" rx="1.500"/><path d="M16 8V4H4v12h4"/>)" },
    { "clear",       R"(<path d="M5 7h14M10 7V4h4v3M7 7l1 13h8l1-13"/>)" },
    { "calls",       R"(<path d="M4 6h2M4 12h2M4 18h2" stroke="@"/><path d="M9 6h11M9 12h11M9 18h7"/>)" },
    { "position",    R"(<path d="M12 3v7M12 14v7M3 12h7M14 12h7"/><circle cx="12" cy="12" r="2" stroke="@"/>)" },
    { "error",       R"(<circle cx="12" cy="12" r="9" stroke="#d3122a" fill="#d3122a" fill-opacity="0.200"/><path stroke="#d3122a" stroke-width="2.200" d="M8.500 8.500l7 7M15.500 8.500l-7 7"/>)" },
    { "warning",     R"(<path stroke="#c07a00" fill="#f0a000" fill-opacity="0.250" d="M12 3.500L21.500 20h-19z"/><path stroke="#c07a00" stroke-width="2.200" d="M12 9.500v5M12 17.300v.300"/>)" },
    { "note",        R"(<circle cx="12" cy="12" r="9" stroke="@"/><path stroke="@" stroke-width="2.200" d="M12 11v6M12 7.500v.300"/>)" },
    { "possible",    R"(<circle cx="12" cy="12" r="9"/><path stroke="#2a9d4a" stroke-width="2.200" d="M7.500 12.500l3 3 6-7"/>)" },
    { "app",         R"(<circle cx="12" cy="12" r="9"/><circle cx="12" cy="12" r="3" stroke="@"/><path stroke="@" d="M12 3v6M4.200 16.500l5.200-3M19.800 16.500l-5.200-3"/>)" },
};
// clang-format on

QByteArray SvgOf(const char* shapes, const QColor& ink, const QColor& accent) {
  QByteArray svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24" fill="none" stroke="INK")"
                   R"( stroke-width="1.6" stroke-linejoin="round" stroke-linecap="round">SHAPES</svg>)";
  svg.replace("INK", ink.name().toLatin1());
  svg.replace("SHAPES", shapes);
  return svg.replace("@", accent.name().toLatin1());
}

/// Draws at the size that is asked for, in the colours of the moment.
class LineIcon final : public QIconEngine {
 public:
  explicit LineIcon(const char* shapes) : shapes_(shapes) {}

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QPalette palette = QApplication::palette();
    const bool isOff = mode == QIcon::Disabled;
    const auto group = isOff ? QPalette::Disabled : QPalette::Active;
    const QColor ink = palette.color(group, QPalette::WindowText);
    QSvgRenderer(SvgOf(shapes_, ink, isOff ? ink : palette.color(QPalette::Link))).render(painter, place);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new LineIcon(*this); }

 private:
  const char* shapes_;
};

}  // namespace

QIcon MakeIcon(const char* name) {
  for (const IconRow& row : kIcons) {
    if (row.name == name) return QIcon(new LineIcon(row.shapes));
  }
  return {};
}

}  // namespace vanzet::window
