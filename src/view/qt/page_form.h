#pragma once

#include <QWidget>
#include <memory>
#include <span>
#include <vector>

#include "view/qt/control_widget.h"
#include "view/qt/page_layouts.h"
#include "view/qt/page_values.h"

class QGridLayout;
class QLabel;

namespace vanzet::view::qt {

/// The controls of a page in rows under titles, laid out by a table. Controls that the table does not know
/// stand below all others.
class PageForm final : public QWidget {
 public:
  PageForm(const PageLayout& layout, const std::vector<Control>& controls, Send send, QWidget* parent);

  /// Makes the widget of a control that stands beside the form, on `parent`; in a row of their own at its
  /// foot those of several buttons. The form goes on to show them.
  QWidget* Take(std::int32_t id, QWidget* parent);
  QWidget* TakeActions(std::span<const std::int32_t> ids, QWidget* parent);

  /// Is called when everything is taken.
  void Finish();

  /// Takes over the state of the controls, and names the values of the type of device whose picture it is.
  void Show(const std::vector<Control>& controls, std::int32_t bitmap);

  void MarkMnemonics(Mnemonics& mnemonics);

  /// True when values have letters, by which they are to be reached.
  bool HasLetters() const;

  /// The widget of a control, null for one that is not here.
  QWidget* WidgetOf(std::int32_t control) const;

 private:
  /// What stands in a row besides its control; null where nothing does. A label of the state is none of
  /// these.
  struct Row {
    const FieldRow* field;
    QLabel* caption = nullptr;  ///< the letter of an edit that has one for good
    QLabel* name = nullptr;
    QLabel* unit = nullptr;
  };

  void AddGroup(QGridLayout& grid, const FieldGroup& group);
  void AddRow(QGridLayout& grid, const FieldRow& field);
  void AddWideRow(QGridLayout& grid, const FieldRow& field);
  void AddNames(QGridLayout& grid, int at, Row& row);
  void AddName(QGridLayout& grid, int at, Row& row, bool isBehindLetter);
  QWidget* Cell(Row& row);
  void AddUnit(Row& row, QWidget* cell);
  void AddLeftOvers(QGridLayout& grid);

  void ShowWords(const Row& row, std::int32_t type, const PageValues& values);
  void Speak(const Row& row, const QString& name, Unit unit, const PageValues& values);

  ControlWidget* Find(std::int32_t id) const;

  const PageLayout& layout_;
  const Send send_;
  const std::vector<Control>* controls_;  ///< of the state, until all is made
  std::vector<std::unique_ptr<ControlWidget>> widgets_;
  std::vector<Row> rows_;
};

}  // namespace vanzet::view::qt
