#include "window/catalogue/device_model.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "base/letter_case.h"
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

constexpr int kDecimals = 6, kDecimalsOfInches = 8;

bool IsLetter(int column) {
  return column >= DeviceModel::kFirstLetter && column < DeviceModel::kFirstFigure;
}

char LetterAt(int column) {
  return static_cast<char>('A' + column - DeviceModel::kFirstLetter);
}

const MakerKey& KeyAt(int column) {
  return catalogue::MakerKeys()[static_cast<std::size_t>(column - DeviceModel::kFirstFigure)];
}

QString UnitText(devices::Unit unit, LengthUnit lengths) {
  if (unit == devices::Unit::kDegree) return QString::fromUtf8("°");
  return unit == devices::Unit::kMillimetre ? ' ' + ToQString(WordOf(lengths)) : QString();
}

/// The value by which a device is sorted.
struct SortKey {
  bool hasValue = false;
  double number = 0;
  std::string text = {};  ///< in small letters
};

std::string InSmallLetters(std::string text) {
  std::ranges::transform(text, text.begin(), SmallLetter);
  return text;
}

SortKey KeyOfFigure(const catalogue::Shop& shop, const Entry& entry, int column) {
  const catalogue::MakerJson* const figures = shop.maker.Find(entry.name);
  const char* const key = KeyAt(column).key;
  if (figures == nullptr || !figures->contains(key)) return {};
  const catalogue::MakerJson& value = figures->at(key);
  if (value.is_string()) return {true, 0, InSmallLetters(value.get<std::string>())};
  return {true, value.is_array() ? value.at(0).get<double>() : value.get<double>()};
}

SortKey KeyOf(const catalogue::Shop& shop, std::size_t at, int column) {
  const Entry& entry = shop.catalogue.entries()[at];
  if (column == DeviceModel::kName) return {true, 0, InSmallLetters(entry.name)};
  if (column == DeviceModel::kKind) return {true, static_cast<double>(entry.params.type)};
  if (!IsLetter(column)) return KeyOfFigure(shop, entry, column);
  if (devices::FindLetter(entry.params.type, LetterAt(column)) == nullptr) return {};
  return {true, ValueOf(entry.params, LetterAt(column))};
}

bool IsLess(const SortKey& a, const SortKey& b) {
  return a.number != b.number ? a.number < b.number : a.text < b.text;
}

}  // namespace

DeviceModel::DeviceModel(const Texts& texts, QObject* parent) : QAbstractTableModel(parent), texts_(texts) {}

DeviceModel::Field DeviceModel::FieldOf(int column) {
  if (IsLetter(column)) return {LetterAt(column)};
  return column < kFirstFigure ? Field() : Field{{}, KeyAt(column).key};
}

std::vector<std::size_t> DeviceModel::Search() const {
  std::vector<std::size_t> found;
  const auto& entries = shop_.catalogue.entries();
  for (const Entry* const entry : catalogue::Search(shop_, query_))
    found.push_back(static_cast<std::size_t>(entry - entries.data()));
  Sort(found);
  return found;
}

void DeviceModel::Sort(std::vector<std::size_t>& found) const {
  if (sortColumn_ < 0) return;
  const bool isDescending = sortOrder_ == Qt::DescendingOrder;
  std::vector<SortKey> keys;
  keys.reserve(found.size());
  for (const std::size_t at : found) keys.push_back(KeyOf(shop_, at, sortColumn_));
  // Places are moved, which is cheaper than moving keys.
  std::vector<std::size_t> rows(found.size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  std::ranges::stable_sort(rows, [&](std::size_t a, std::size_t b) {
    if (keys[a].hasValue != keys[b].hasValue) return keys[a].hasValue;
    return isDescending ? IsLess(keys[b], keys[a]) : IsLess(keys[a], keys[b]);
  });
  std::ranges::transform(rows, rows.begin(), [&](std::size_t row) { return found[row]; });
  found = std::move(rows);
}

void DeviceModel::sort(int column, Qt::SortOrder order) {
  sortColumn_ = column, sortOrder_ = order;
  emit layoutAboutToBeChanged({}, VerticalSortHint);
  const QModelIndexList before = persistentIndexList();
  std::map<std::size_t, std::vector<QModelIndex>> kept;
  for (const QModelIndex& index : before)
    kept[found_[static_cast<std::size_t>(index.row())]].push_back(index);
  found_ = Search();
  for (std::size_t row = 0; row < found_.size() && !kept.empty(); ++row) {
    const auto moved = kept.extract(found_[row]);
    if (moved.empty()) continue;
    for (const QModelIndex& from : moved.mapped())
      changePersistentIndex(from, index(static_cast<int>(row), from.column()));
  }
  emit layoutChanged({}, VerticalSortHint);
}

void DeviceModel::Show(catalogue::Shop shop, LengthUnit unit) {
  unit_ = unit;
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

QString DeviceModel::LetterText(const Entry& entry, char letter, bool isEdited) const {
  const devices::Letter* const row = devices::FindLetter(entry.params.type, letter);
  if (row == nullptr) return {};
  const int decimals = unit_ == LengthUnit::kInch ? kDecimalsOfInches : kDecimals;
  const QString number = ToQString(ShortDecimalText(ValueOf(entry.params, letter), decimals));
  return isEdited ? number : number + UnitText(row->unit, unit_);
}

QString DeviceModel::FigureText(const Entry& entry, int column, bool isEdited) const {
  const MakerKey& key = KeyAt(column);
  const catalogue::MakerJson* const figures = shop_.maker.Find(entry.name);
  if (figures == nullptr || !figures->contains(key.key)) return {};
  const QString text = ToQString(catalogue::MakerText(figures->at(key.key)));
  if (isEdited || *key.unit == '\0') return text;
  return text + ' ' + (key.IsLength() ? ToQString(WordOf(unit_)) : key.unit);
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

/// Own devices have no values that the catalogue could change. Of a name that several devices have the first
/// one is meant.
Qt::ItemFlags DeviceModel::flags(const QModelIndex& index) const {
  const Entry& entry = DeviceAt(index.row());
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  const bool hasLetter = IsLetter(index.column()) && entry.hasValues && !devices::IsOwn(entry.params.type) &&
                         devices::FindLetter(entry.params.type, LetterAt(index.column())) != nullptr;
  const bool isFirst = shop_.catalogue.Find(entry.name) == &entry;
  const bool isOfAll = index.column() == kName || index.column() >= kFirstFigure;
  return isFirst && (hasLetter || isOfAll) ? flags | Qt::ItemIsEditable : flags;
}

bool DeviceModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || value.toString() == data(index, Qt::EditRole).toString()) return false;
  emit EditWanted(ToQString(DeviceAt(index.row()).name), index.column(), value.toString().trimmed());
  return true;
}

}  // namespace vanzet::window
