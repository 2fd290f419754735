#include "window/catalogue/device_model.h"

#include <algorithm>
#include <utility>

#include "base/number_text.h"
#include "devices/kinds.h"
#include "window/catalogue/device_picture.h"
#include "window/qt_text.h"

namespace vanzet::window {
namespace {

using catalogue::Entry;
using catalogue::MakerKey;

// The sections of the translations with the names of letters and of figures.
constexpr const char* kLetterSection = "view";
constexpr const char* kFigureSection = "cli";

constexpr int kDecimals = 6;

bool IsLetter(int column) {
  return column >= DeviceModel::kFirstLetter && column < DeviceModel::kFirstFigure;
}

char LetterAt(int column) {
  return static_cast<char>('A' + column - DeviceModel::kFirstLetter);
}

const MakerKey& KeyAt(int column) {
  return catalogue::MakerKeys()[static_cast<std::size_t>(column - DeviceModel::kFirstFigure)];
}

QString UnitText(devices::Unit unit) {
  if (unit == devices::Unit::kDegree) return QString::fromUtf8("°");
  return unit == devices::Unit::kMillimetre ? " mm" : "";
}

}  // namespace

DeviceModel::DeviceModel(const Texts& texts, QObject* parent) : QAbstractTableModel(parent), texts_(texts) {}

DeviceModel::Field DeviceModel::FieldOf(int column) {
  if (IsLetter(column)) return {LetterAt(column)};
  return {{}, KeyAt(column).key};
}

std::vector<std::size_t> DeviceModel::Search() const {
  std::vector<std::size_t> found;
  const auto& entries = shop_.catalogue.entries();
  for (const Entry* const entry : catalogue::Search(shop_, query_))
    found.push_back(static_cast<std::size_t>(entry - entries.data()));
  return found;
}

void DeviceModel::Show(catalogue::Shop shop) {
  const bool hasSameNames =
      std::ranges::equal(shop.catalogue.entries(), shop_.catalogue.entries(), {}, &Entry::name, &Entry::name);
  shop_ = std::move(shop);
  auto found = Search();
  if (hasSameNames && found == found_) {
    if (!found_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    return;
  }
  beginResetModel();
  found_ = std::move(found);
  endResetModel();
}

void DeviceModel::Filter(catalogue::Query query) {
  beginResetModel();
  query_ = std::move(query);
  found_ = Search();
  endResetModel();
}

void DeviceModel::SetLook(const QPalette& palette, qreal pixelRatio) {
  palette_ = palette;
  pixelRatio_ = pixelRatio;
  Retranslate();
}

void DeviceModel::Retranslate() {
  if (!found_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

const Entry& DeviceModel::DeviceAt(int row) const {
  return shop_.catalogue.entries()[found_[static_cast<std::size_t>(row)]];
}

std::optional<int> DeviceModel::RowOf(const std::string& name) const {
  const auto row = std::ranges::find_if(
      found_, [&](std::size_t at) { return shop_.catalogue.entries()[at].name == name; });
  if (row == found_.end()) return {};
  return static_cast<int>(row - found_.begin());
}

std::vector<const Entry*> DeviceModel::Devices() const {
  std::vector<const Entry*> devices;
  for (const std::size_t at : found_) devices.push_back(&shop_.catalogue.entries()[at]);
  return devices;
}

int DeviceModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(found_.size());
}

int DeviceModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kFirstFigure + static_cast<int>(catalogue::MakerKeys().size());
}

QVariant DeviceModel::data(const QModelIndex& index, int role) const {
  const Entry& entry = DeviceAt(index.row());
  switch (role) {
    case Qt::DisplayRole: return TextAt(entry, index.column(), false);
    case Qt::EditRole: return TextAt(entry, index.column(), true);
    case Qt::ToolTipRole: return NameOf(entry, index.column());
    case Qt::AccessibleTextRole:
      return QString(NameOf(entry, index.column()) + ' ' + TextAt(entry, index.column(), false)).trimmed();
    case Qt::DecorationRole:
      return index.column() == kName ? QVariant(ThumbnailOf(entry.params, kThumbnail, palette_, pixelRatio_))
                                     : QVariant();
    case Qt::TextAlignmentRole:
      return static_cast<int>(IsLetter(index.column()) ? Qt::AlignRight : Qt::AlignLeft) |
             static_cast<int>(Qt::AlignVCenter);
    default: return {};
  }
}

QString DeviceModel::TextAt(const Entry& entry, int column, bool isEdited) const {
  if (column == kName) return ToQString(entry.name);
  if (column == kKind) return KindTextOf(texts_, entry.params.type);
  return IsLetter(column) ? LetterText(entry, LetterAt(column), isEdited)
                          : FigureText(entry, column, isEdited);
}

QString DeviceModel::LetterText(const Entry& entry, char letter, bool isEdited) {
  const devices::Letter* const row = devices::FindLetter(entry.params.type, letter);
  if (row == nullptr) return {};
  const QString number = ToQString(ShortDecimalText(ValueOf(entry.params, letter), kDecimals));
  return isEdited ? number : number + UnitText(row->unit);
}

QString DeviceModel::FigureText(const Entry& entry, int column, bool isEdited) const {
  const MakerKey& key = KeyAt(column);
  const catalogue::MakerJson* const figures = shop_.maker.Find(entry.name);
  if (figures == nullptr || !figures->contains(key.key)) return {};
  const QString text = ToQString(catalogue::MakerText(figures->at(key.key)));
  return isEdited || *key.unit == '\0' ? text : text + ' ' + key.unit;
}

/// The name of a value: what a letter means depends on the device.
QString DeviceModel::NameOf(const Entry& entry, int column) const {
  if (!IsLetter(column)) return headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  const devices::Letter* const row = devices::FindLetter(entry.params.type, LetterAt(column));
  if (row == nullptr) return {};
  const QString name = ToQString(texts_.translations().Translate(kLetterSection, row->name));
  const QString letter(QChar::fromLatin1(row->letter));
  return name.isEmpty() ? letter : name + " (" + letter + ')';
}

QVariant DeviceModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  if (section == kName) return texts_(Text::kDeviceName);
  if (section == kKind) return texts_(Text::kDeviceKind);
  if (IsLetter(section)) return QString(QChar::fromLatin1(LetterAt(section)));
  return ToQString(texts_.translations().Translate(kFigureSection, KeyAt(section).name));
}

/// Own devices have no values that the catalogue could change.
Qt::ItemFlags DeviceModel::flags(const QModelIndex& index) const {
  const Entry& entry = DeviceAt(index.row());
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const bool hasLetter = IsLetter(index.column()) && entry.hasValues && !devices::IsOwn(entry.params.type) &&
                         devices::FindLetter(entry.params.type, LetterAt(index.column())) != nullptr;
  return hasLetter || index.column() >= kFirstFigure ? flags | Qt::ItemIsEditable : flags;
}

bool DeviceModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || value.toString() == data(index, Qt::EditRole).toString()) return false;
  emit EditWanted(ToQString(DeviceAt(index.row()).name), index.column(), value.toString().trimmed());
  return true;
}

}  // namespace vanzet::window
