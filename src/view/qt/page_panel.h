#pragma once

#include <QFrame>
#include <memory>
#include <vector>

#include "view/qt/control_widget.h"
#include "view/qt/page_layouts.h"
#include "view/qt/page_values.h"

class QGridLayout;
class QLabel;
class QScrollArea;

namespace vanzet::view::qt {

class PictureWidget;

/// A page of the dialog: its controls laid out by a table, and its picture beside them. Controls that the
/// table does not know stand below all others.
class PagePanel final : public QWidget {
 public:
  PagePanel(const PageLayout& layout, const std::vector<Control>& controls, const Send& send,
            QWidget* parent);

  /// Takes over the state of the controls. `place` is where the page stands in the tree; the measure of the
  /// edit `focused` stands out in the picture.
  void Show(const std::vector<Control>& controls, const QString& place, std::int32_t focused);

  void MarkMnemonics(Mnemonics& mnemonics);

  /// The widget of a control, null for one that is not here.
  QWidget* WidgetOf(std::int32_t control) const;

  PictureWidget* ThePicture() const { return picture_; }

 private:
  /// The words beside a row, which follow the type of device.
  struct RowWords {
    const FieldRow* row;
    QLabel* letter;  ///< null where a label of the state stands there, as with the next
    QLabel* name;
    QLabel* unit;
  };

  void BuildTitle();
  void BuildForm(QWidget* form);
  void AddGroup(QGridLayout& grid, const FieldGroup& group);
  void AddRow(QGridLayout& grid, const FieldRow& row);
  void AddNames(QGridLayout& grid, const FieldRow& row, int at, RowWords& words);
  QWidget* Cell(const FieldRow& row, RowWords& words);
  void AddWideRow(QGridLayout& grid, const FieldRow& row);
  QWidget* Actions(std::span<const std::int32_t> ids);
  void AddLeftOvers(QGridLayout& grid);
  void OrderTabs();

  void ShowWords(const PageValues& values);
  void Speak(const RowWords& words, const QString& name, Unit unit, const PageValues& values);

  ControlWidget* Find(std::int32_t id) const;
  ControlKind KindOf(std::int32_t id) const;

  /// The widget of a control that is being laid out, made on the way. Null for id 0.
  QWidget* Take(std::int32_t id, QWidget* parent);

  const PageLayout& layout_;
  const Send send_;
  const std::vector<Control>* controls_;  ///< of the state, while it is built
  std::vector<std::unique_ptr<ControlWidget>> widgets_;
  std::vector<RowWords> words_;
  QLabel* title_ = nullptr;  ///< of a page that has no label for it
  QScrollArea* scroll_ = nullptr;
  PictureWidget* picture_ = nullptr;
};

}  // namespace vanzet::view::qt
