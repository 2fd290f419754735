#include "view/qt/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>

#include "view/ids.h"

// Resources of a static library are not registered by themselves. The function must be outside of any
// namespace.
static void RegisterIcons() {
  Q_INIT_RESOURCE(icons);
}

namespace vanzet::view::qt {
namespace {

/// A selected node has the same picture in other colours, and so the same row.
// clang-format off
constexpr NodeIcon kNodeIcons[] = {
    {icon::kBezel,          "bezel",       false},
    {icon::kBillet,         "billet",      false},
    {icon::kBilletSub,      "billet",      true},
    {icon::kFigure,         "figure",      false},
    {icon::kFigureSub,      "figure",      true},
    {icon::kSolid,          "solid",       false},
    {icon::kSolidSub,       "solid",       true},
    {icon::kCenter,         "center",      false},
    {icon::kChuck,          "chuck",       false},
    {icon::kChuckSub,       "chuck",       true},
    {icon::kCollet,         "collet",      false},
    {icon::kColletSub,      "collet",      true},
    {icon::kFaceDriver,     "face-driver", false},
    {icon::kFaceDriverSub,  "face-driver", true},
    {icon::kGroup,          "group",       false},
    {icon::kJaw,            "jaw",         false},
    {icon::kJawSub,         "jaw",         true},
    {icon::kMandrel,        "mandrel",     false},
    {icon::kMandrelSub,     "mandrel",     true},
    {icon::kTailstock,      "tailstock",   false},
    {icon::kDatum,          "datum",       false},
};
// clang-format on

const NodeIcon* FindNodeIcon(std::int32_t bitmap) {
  const auto* const row = std::ranges::find_if(kNodeIcons, [&](const NodeIcon& icon) {
    return icon.bitmap == bitmap || icon::Selected(icon.bitmap) == bitmap;
  });
  return row == std::end(kNodeIcons) ? nullptr : row;
}

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

// Icons of buttons, by a text that is a mere sign, and by their ids.

struct SignIcon {
  std::string_view text;
  const char* file;
};
constexpr SignIcon kSigns[] = {{">>", "pick"}, {"...", "browse"}};

struct IdIcon {
  std::int32_t id;
  const char* file;
};
// clang-format off
constexpr IdIcon kIds[] = {
    {control::kOk,               "ok"    },
    {control::kHelp,             "help"  },
    {control::kLoad,             "load"  },
    {control::kSave,             "save"  },
    {control::kSelect,           "select"},
    {control::kSelectCylinder,   "select"},
    {control::kSelectParametric, "select"},
    {control::kSelectOwn,        "select"},
    {control::kPickSolid,        "solid" },
    {control::kDeleteDevice,     "delete"},
    {control::kSaveDevice,       "save"  },
};
// clang-format on

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

ButtonIcon IconOfButton(std::int32_t id, std::string_view text) {
  for (const SignIcon& row : kSigns) {
    if (row.text == text) return {row.file, true};
  }
  for (const IdIcon& row : kIds) {
    if (row.id == id) return {row.file, false};
  }
  return {nullptr, false};
}

}  // namespace vanzet::view::qt
