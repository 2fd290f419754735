#include "view/qt/list/device_list.h"

#include <QPainter>
#include <QStringList>
#include <QWidget>
#include <algorithm>
#include <numeric>

#include "devices/kinds.h"
#include "view/ids.h"
#include "view/qt/list/chooser.h"
#include "view/qt/painter_canvas.h"
#include "view/qt/texts.h"
#include "view/shared/device_words.h"
#include "view/shared/lengths.h"
#include "view/shared/pictures/painter.h"
#include "view/shared/pictures/pictures.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kTitle = Translatable("Choose a device");
constexpr const char* kSearch = Translatable("Search by name, kind or value");

const UsedNames kUsed("recent-devices");

struct KindName {
  const devices::Kind* kind;
  const char* name;
};
constexpr KindName kKindNames[] = {
    {&devices::kChuck, Translatable("Chuck")},     {&devices::kCollet, Translatable("Collet")},
    {&devices::kMandrel, Translatable("Mandrel")}, {&devices::kFaceDriver, Translatable("Face driver")},
    {&devices::kJaw, Translatable("Jaw")},         {&devices::kCenter, Translatable("Center")},
};

/// "Jaw 3": the kind, and the shape where the kind has several.
QString KindText(std::int32_t type) {
  const devices::Kind* const kind = devices::KindOf(type);
  const auto* const row = std::ranges::find(kKindNames, kind, &KindName::kind);
  if (row == std::end(kKindNames)) return {};
  const QString name = Translate(row->name);
  return kind->devices.size() < 2 ? name : name + QLatin1Char(' ') + QString::number(kind->ShapeOf(type));
}

/// "A 105, B 98".
QString ValuesText(const ListedDevice& device) {
  QStringList values;
  for (const devices::Letter& each : devices::LettersOf(device.type)) {
    const double value = device.values.at(static_cast<std::size_t>(each.letter - 'A'));
    if (value == 0) continue;
    const bool isLength = each.unit == Unit::kMillimetre;
    const QString number = isLength ? QString::fromStdString(LengthLabel(value)) : QString::number(value);
    values.append(QString(QLatin1Char(each.letter)) + QLatin1Char(' ') + number);
  }
  return values.join(QStringLiteral(", "));
}

/// The outline of a device, without its measures.
QPixmap Thumbnail(const ListedDevice& device, const QWidget& where) {
  std::vector<Control> controls;
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    controls.push_back({.id = control::EditOfLetter(letter),
                        .kind = ControlKind::kEdit,
                        .isReal = true,
                        .number = device.values.at(static_cast<std::size_t>(letter - 'A'))});
  }
  Sketch sketch = SketchOf(devices::PictureOf(device.type), PageValues(controls));
  sketch.measures.clear();
  sketch.notes.clear();
  sketch.fault.clear();
  QPixmap picture(kThumbnail * where.devicePixelRatio());
  picture.setDevicePixelRatio(where.devicePixelRatio());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QFont font = where.font();
  // The margins around a sketch are in letters, and there are none.
  font.setPixelSize(4);
  PainterCanvas canvas(painter, font);
  Paint(canvas, BoxOf(QRectF(QPointF(0, 0), kThumbnail)), sketch, ColoursOf(where.palette()), {});
  return picture;
}

/// The indices of the names, those that were used last first.
std::vector<int> InOrderOfUse(const std::vector<std::string>& names) {
  const QStringList recent = kUsed.Read();
  const auto rank = [&](int index) {
    const qsizetype at = recent.indexOf(QString::fromStdString(names[static_cast<std::size_t>(index)]));
    return at < 0 ? recent.size() : at;
  };
  std::vector<int> order(names.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, rank);
  return order;
}

/// "Jaw 3: A 105, B 98".
QString AboutText(const ListedDevice& device) {
  return QStringList{KindText(device.type), ValuesText(device)}.join(QStringLiteral(": "));
}

}  // namespace

std::optional<int> ChooseDevice(const std::vector<std::string>& names,
                                const std::vector<ListedDevice>& devices, QWidget* parent) {
  const std::vector<int> order = InOrderOfUse(names);
  std::vector<ListEntry> entries;
  for (const int index : order) {
    const auto at = static_cast<std::size_t>(index);
    entries.push_back({QString::fromStdString(names[at]), [&device = devices[at]](const QWidget& where) {
                         return EntryDetails{AboutText(device), Thumbnail(device, where)};
                       }});
  }
  const auto chosen = ChooseEntry(Translate(kTitle), Translate(kSearch), entries, parent);
  if (!chosen) return std::nullopt;
  return order[static_cast<std::size_t>(*chosen)];
}

void RememberDevice(const QString& name) {
  kUsed.PutFirst(name);
}

}  // namespace vanzet::view::qt
