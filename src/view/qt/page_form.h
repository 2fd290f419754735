#pragma once

#include <QWidget>
#include <memory>
#include <span>
#include <vector>

#include "view/qt/control_widget.h"
#include "view/shared/page_model.h"
#include "view/shared/sketch.h"

class QGridLayout;
class QLabel;

namespace vanzet::view::qt {

/// The controls of a page in rows under titles, laid out by a table. Controls that the table does not have
/// are below all others.
class PageForm final : public QWidget {
 public:
  PageForm(const PageLayout& layout, const std::vector<Control>& controls, Send send, QWidget* parent);

  /// Makes the widget of a control that is outside of the form, or a row of buttons, on `parent`. The form
  /// shows their state as well.
  QWidget* MakeWidget(std::int32_t id, QWidget* parent);
  QWidget* MakeActions(std::span<const std::int32_t> ids, QWidget* parent);

  /// Has to be called when all widgets are made.
  void Finish() { controls_ = nullptr; }

  /// The widgets that the keyboard reaches, in order.
  std::vector<QWidget*> TabChain() const;

  /// Shows the state of the controls, and the names of the values of the device that the picture is of.
  void Show(const std::vector<Control>& controls);

  /// Marks the edits whose values are at fault in a sketch, and unmarks the others.
  void ShowFaults(const Sketch& sketch);

  void MarkMnemonics(Mnemonics& mnemonics);

  void MarkUnstored(std::int32_t button, bool isUnstored);

  /// True when values have letters that lead to them.
  bool HasLetters() const;

  /// The widget of a control, null for one that is not here.
  QWidget* WidgetOf(std::int32_t control) const;

 private:
  /// The labels of a row besides those of the state; null where there are none.
  struct Row {
    const FieldRow* field;
    QLabel* caption = nullptr;  ///< the letter of an edit whose letter never changes
    QLabel* name = nullptr;
    QLabel* unit = nullptr;
    QLabel* needed = nullptr;  ///< the sign after a value that the page demands
  };

  void AddGroup(QGridLayout& grid, const FieldGroup& group);
  void AddRow(QGridLayout& grid, const FieldRow& field);
  void AddWideRow(QGridLayout& grid, const FieldRow& field);
  void AddNames(QGridLayout& grid, int at, Row& row);
  void AddName(QGridLayout& grid, int at, Row& row, bool isAfterLetter);
  QWidget* Cell(Row& row);
  void AddUnit(Row& row, QWidget* cell);
  void AddChooser(const Row& row, QWidget* cell);
  static void AddNeeded(Row& row, QWidget* cell);
  void AddSign(QGridLayout& grid, int at, Row& row, QLabel* label);
  void AddLeftOvers(QGridLayout& grid);

  void ShowTexts(const Row& row, const RowModel& model);

  ControlWidget* Find(std::int32_t id) const;

  const PageLayout& layout_;
  const Send send_;
  const std::vector<Control>* controls_;  ///< of the state, until all widgets are made
  std::vector<std::unique_ptr<ControlWidget>> widgets_;
  std::vector<Row> rows_;
};

}  // namespace vanzet::view::qt
