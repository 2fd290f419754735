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

  /// Shows another catalogue or another state of it; the selection stays.
  void Show(catalogue::Shop shop);
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
  void UndoWanted();
  void SheetWanted();
  void Left();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QWidget* MakeSearch();
  QWidget* MakeTable();
  QWidget* MakePanel();
  QWidget* MakeButtons();
  void AddKeys();
  void FillKinds();
  void Retranslate();
  void Filter();
  void ShowCount();
  void ShowSelected();
  std::vector<std::string> Selected() const;
  void Select(const std::vector<std::string>& names);

  const Texts& texts_;
  DeviceModel* model_;
  QLineEdit* search_;
  QComboBox* kinds_;
  QLabel *count_, *fault_;
  QTableView* table_;
  DevicePanel* panel_;
  QPushButton *undo_, *sheet_, *back_;
  QTimer typing_;  ///< searches once for letters that follow each other quickly
};

}  // namespace vanzet::window
