#pragma once

#include <QTimer>
#include <QWidget>
#include <string>
#include <vector>

#include "window/catalogue/device_model.h"
#include "window/catalogue/device_panel.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace vanzet::window {

/// The page of the catalogue: a search, the table of devices, and beside it those that are selected. It shows
/// and asks; what an edit does is the business of `CatalogueCommands`.
class CataloguePage final : public QWidget {
  Q_OBJECT
 public:
  explicit CataloguePage(const Texts& texts, QWidget* parent = nullptr);

  /// Shows another catalogue or another state of it, with lengths in the unit; the selection stays.
  void Show(catalogue::Shop shop, LengthUnit unit);
  /// Selects those of the devices that fit the search.
  void Select(const std::vector<std::string>& names);
  /// Begins to edit the name of a device.
  void EditName(const std::string& name);
  /// Says why something was not done; empty: nothing is said.
  void SetFault(const QString& fault);
  QString Fault() const;
  void SetCanUndo(bool canUndo);

  /// Looks for a text, as if it were typed, and selects the device of that name.
  void Find(const QString& text);

  /// A value is being typed into the table.
  bool IsEditing() const;

  DeviceModel& model() { return *model_; }
  QTableView& table() { return *table_; }
  DevicePanel& panel() { return *panel_; }

 signals:
  void EditWanted(const QString& device, int column, const QString& text);
  void AddWanted(std::int32_t type, const QString& name);
  void CopyWanted(const QString& device);
  void RemoveWanted(const QStringList& devices);
  void UndoWanted();
  void SheetWanted();
  void Left();
  void Hidden();

 protected:
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* MakeSearch();
  QWidget* MakeTable();
  QWidget* MakePanel();
  QWidget* MakeButtons();
  void AddKeys();
  void FillKinds();
  void FillAddMenu();
  void AskToRemove();
  void Retranslate();
  void Filter();
  void ShowCount();
  void ShowSelected();
  std::vector<std::string> Selected(std::size_t most) const;

  const Texts& texts_;
  DeviceModel* model_;
  QLineEdit* search_;
  QComboBox* kinds_;
  QLabel *count_, *fault_;
  QTableView* table_;
  DevicePanel* panel_;
  QPushButton *add_, *remove_, *undo_, *sheet_, *back_;
  QTimer typing_;  ///< searches once for letters that follow each other quickly
};

}  // namespace vanzet::window
