#pragma once

#include <QAbstractTableModel>
#include <QPalette>
#include <QSize>
#include <optional>
#include <vector>

#include "catalogue/query.h"
#include "window/texts.h"

namespace vanzet::window {

/// The devices of a catalogue that fit a search, as a table: name, kind, letters A to J, maker data; in the
/// order of the catalogue or of a column. Cells are made when they are shown, so that the number of devices
/// costs nothing.
///
/// Units    lengths are of the unit, in the catalogue that is shown and in searches
class DeviceModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit DeviceModel(const Texts& texts, QObject* parent);

  static constexpr int kName = 0, kKind = 1, kFirstLetter = 2, kLetters = 10,
                       kFirstFigure = kFirstLetter + kLetters;
  static constexpr QSize kThumbnail = {72, 40};

  /// The value of an edited cell: a letter, or else the key of a figure; for the name neither.
  struct Field {
    std::optional<char> letter = {};
    std::string key = {};
  };
  static Field FieldOf(int column);

  /// Shows another catalogue, or another state of it.
  void Show(catalogue::Shop shop, LengthUnit unit);
  void Filter(catalogue::Query query);
  /// The colours and the sharpness of the small pictures.
  void SetLook(const QPalette& palette, qreal pixelRatio);
  void Retranslate();

  const catalogue::Shop& shop() const { return shop_; }
  const catalogue::Entry& DeviceAt(int row) const;
  /// The row of the first device of that name; nothing when it does not fit the search.
  std::optional<int> RowOf(const std::string& name) const;
  std::vector<const catalogue::Entry*> Devices() const;

  /// The text of a device in a column, and the name of the value.
  QString TextOf(const catalogue::Entry& entry, int column) const { return TextAt(entry, column, false); }
  QString NameOf(const catalogue::Entry& entry, int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Asks for the change by `EditWanted`; the cell changes with the catalogue.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  /// Devices without a value of the column come last. Column -1 is the order of the catalogue.
  void sort(int column, Qt::SortOrder order) override;

 signals:
  void EditWanted(const QString& device, int column, const QString& text);

 private:
  std::vector<std::size_t> Search() const;
  void Sort(std::vector<std::size_t>& found) const;
  QString TextAt(const catalogue::Entry& entry, int column, bool isEdited) const;
  QString LetterText(const catalogue::Entry& entry, char letter, bool isEdited) const;
  QString FigureText(const catalogue::Entry& entry, int column, bool isEdited) const;

  const Texts& texts_;
  catalogue::Shop shop_;
  catalogue::Query query_;
  LengthUnit unit_ = LengthUnit::kMillimetre;
  std::vector<std::size_t> found_;  ///< their places in the catalogue, in the order of the table
  int sortColumn_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
  QPalette palette_;
  qreal pixelRatio_ = 1;
};

}  // namespace vanzet::window
