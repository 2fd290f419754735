#include "window/theme.h"

#include <QApplication>

#include "window/framed_style.h"

namespace vanzet::window {
namespace {

/// The roles that both appearances set.
struct PaletteRow {
  QPalette::ColorRole role;
  const char* light;
  const char* dark;
};

// clang-format off
constexpr PaletteRow kPalette[] = {
    { QPalette::Window,          "#f1f3f5", "#24282d" },
    { QPalette::WindowText,      "#1d2328", "#e3e7eb" },
    { QPalette::Base,            "#ffffff", "#1b1e22" },
    { QPalette::AlternateBase,   "#f6f8fa", "#20242a" },
    { QPalette::Text,            "#1d2328", "#e3e7eb" },
    { QPalette::PlaceholderText, "#7c868e", "#8b959e" },
    { QPalette::Button,          "#e9ecef", "#30363d" },
    { QPalette::ButtonText,      "#1d2328", "#e3e7eb" },
    { QPalette::BrightText,      "#ffffff", "#ffffff" },
    { QPalette::ToolTipBase,     "#1d2328", "#3a4149" },
    { QPalette::ToolTipText,     "#ffffff", "#ffffff" },
    { QPalette::Highlight,       "#1f6fb4", "#2f7fc4" },
    { QPalette::HighlightedText, "#ffffff", "#ffffff" },
    { QPalette::Link,            "#1f6fb4", "#63aee8" },
    { QPalette::Light,           "#ffffff", "#3a4149" },
    { QPalette::Midlight,        "#f4f6f8", "#343a41" },
    { QPalette::Mid,             "#c3cad0", "#43494f" },
    { QPalette::Dark,            "#a9b2ba", "#16181b" },
    { QPalette::Shadow,          "#8b959e", "#0e1012" },
};
// clang-format on

constexpr const char* kStyleSheet = R"(
QMainWindow::separator { width: 5px; height: 5px; }
QSplitter::handle { background: palette(window); }
QToolBar { border: none; padding: 3px 6px; spacing: 2px; }
QToolBar QToolButton { padding: 5px; border-radius: 5px; border: 1px solid transparent; }
QToolBar QToolButton:hover { background: palette(midlight); border-color: palette(mid); }
QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: palette(mid); }
QToolBar::separator { width: 1px; background: palette(mid); margin: 5px 6px; }
QDockWidget::title { padding: 6px 8px; background: palette(window); font-weight: 600; }
QStatusBar { border-top: 1px solid palette(mid); }
QStatusBar::item { border: none; }
QTreeWidget, QListWidget, QPlainTextEdit { border: 1px solid palette(mid); }
QTreeWidget::item, QListWidget::item { padding: 2px 0; }
QFrame#viewPane { border: 1px solid palette(mid); }
QWidget#viewHeader { background: palette(button); }
QWidget#viewHeader QLabel { font-weight: 600; }
QWidget#viewHeader QToolButton { padding: 3px; border-radius: 4px; border: 1px solid transparent; }
QWidget#viewHeader QToolButton:hover { background: palette(midlight); border-color: palette(mid); }
QWidget#viewHeader QToolButton:checked { background: palette(mid); }
QFrame#hintBar { background: palette(highlight); }
QFrame#hintBar QLabel { color: palette(highlighted-text); }
QFrame#noticeBar { background: #f6dfa6; }
QFrame#noticeBar QLabel { color: #4a3a0c; }
)";

const ViewColours kLightView = {"#fcfdfe", "#eceff2", "#dde2e6", "#9aa3ab",
                                "#1d2328", "#7c868e", "#1f6fb4", "#b3261e"};
const ViewColours kDarkView = {"#1b1e22", "#262a2f", "#32373d", "#7d8790",
                               "#e3e7eb", "#8b959e", "#63aee8", "#f2948c"};

}  // namespace

void ApplyAppearance(QApplication& application, Appearance appearance) {
  QPalette palette;
  for (const PaletteRow& row : kPalette) {
    palette.setColor(row.role, appearance == Appearance::kDark ? row.dark : row.light);
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, appearance == Appearance::kDark ? "#6b747c" : "#a2abb3");
  }
  QApplication::setStyle(new FramedStyle("Fusion"));
  QApplication::setPalette(palette);
  application.setStyleSheet(kStyleSheet);
}

Appearance AppearanceOf(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128 ? Appearance::kDark : Appearance::kLight;
}

const ViewColours& ColoursFor(const QPalette& palette) {
  return AppearanceOf(palette) == Appearance::kDark ? kDarkView : kLightView;
}

QColor OnGround(const QColor& colour, const QPalette& palette) {
  if (AppearanceOf(palette) == Appearance::kLight) return colour;
  float hue = 0, saturation = 0, lightness = 0;
  colour.getHslF(&hue, &saturation, &lightness);
  return QColor::fromHslF(std::max(0.0F, hue), saturation, 0.9F - 0.55F * lightness);
}

}  // namespace vanzet::window
