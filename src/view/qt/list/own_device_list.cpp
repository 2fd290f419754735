#include "view/qt/list/own_device_list.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "view/qt/list/chooser.h"
#include "view/qt/list/own_device_file.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr const char* kTitle = Translatable("Choose the file of an own device");
constexpr const char* kSearch = Translatable("Search by name, kind or folder");

struct ClassName {
  int deviceClass;
  const char* name;
};
constexpr ClassName kClassNames[] = {
    {0, Translatable("Clamp device")}, {1, Translatable("Jaw")}, {3, Translatable("Center")}};

constexpr const char* kUnknown = Translatable("Not an own device");
constexpr double kMargin = 3;  // pixels around an outline

const UsedNames kUsed("recent-own-devices");

QString ClassText(const std::optional<OwnDeviceFile>& device) {
  const auto* const row =
      device ? std::ranges::find(kClassNames, device->deviceClass, &ClassName::deviceClass) : nullptr;
  return Translate(row == nullptr || row == std::end(kClassNames) ? kUnknown : row->name);
}

QPixmap Thumbnail(const QPolygonF& outline, const QWidget& where) {
  const QRectF box = outline.boundingRect();
  if (box.width() <= 0 || box.height() <= 0) return {};
  QPixmap picture(kThumbnail * where.devicePixelRatio());
  picture.setDevicePixelRatio(where.devicePixelRatio());
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const double scale = std::min((kThumbnail.width() - 2 * kMargin) / box.width(),
                                (kThumbnail.height() - 2 * kMargin) / box.height());
  painter.translate(kThumbnail.width() / 2.0, kThumbnail.height() / 2.0);
  painter.scale(scale, -scale);
  painter.translate(-box.center());
  QPen pen(where.palette().color(QPalette::Text), 1);
  pen.setCosmetic(true);
  painter.setPen(pen);
  painter.setBrush(where.palette().color(QPalette::Mid));
  painter.drawPolygon(outline);
  return picture;
}

EntryDetails DetailsOf(const QString& path, const QWidget& where) {
  const auto device = ReadOwnDeviceFile(path);
  const QString folder = QDir::toNativeSeparators(QFileInfo(path).absolutePath());
  return {ClassText(device) + QStringLiteral(": ") + folder,
          device ? Thumbnail(device->outline, where) : QPixmap()};
}

/// The files that are offered, in their order.
QStringList FilesNear(const QString& current) {
  QStringList files = kUsed.Read();
  if (QFileInfo(current).isFile()) files.append(current);
  files.removeIf([](const QString& file) { return !QFileInfo(file).isFile(); });
  QStringList folders = {QDir::currentPath()};  // where the dialog for files begins
  for (const QString& file : files) folders.append(QFileInfo(file).absolutePath());
  folders.removeDuplicates();
  for (const QString& folder : folders) {
    const QDir each(folder);
    for (const QString& name : each.entryList({QStringLiteral("*.vdm")}, QDir::Files, QDir::Name))
      files.append(each.filePath(name));
  }
  files.removeDuplicates();
  return files;
}

}  // namespace

std::optional<QString> ChooseOwnDevice(const QString& current, QWidget* parent) {
  const QStringList files = FilesNear(current);
  std::vector<ListEntry> entries;
  for (const QString& file : files) {
    entries.push_back({QFileInfo(file).completeBaseName(),
                       [&file](const QWidget& where) { return DetailsOf(file, where); }});
  }
  const auto chosen = ChooseEntry(Translate(kTitle), Translate(kSearch), entries, parent);
  return chosen ? std::optional(files[*chosen]) : std::nullopt;
}

void RememberOwnDevice(const QString& path) {
  if (QFileInfo(path).isFile()) kUsed.PutFirst(QFileInfo(path).absoluteFilePath());
}

}  // namespace vanzet::view::qt
