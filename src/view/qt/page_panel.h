#pragma once

#include <QWidget>
#include <vector>

#include "view/qt/control_widget.h"
#include "view/shared/page_layouts.h"

class QLabel;
class QScrollArea;

namespace vanzet::view::qt {

class PageForm;
class PictureWidget;

/// A page of the dialog: its title, the form of its controls beside the picture, and the buttons that apply
/// its values.
class PagePanel final : public QWidget {
 public:
  PagePanel(const PageLayout& layout, const std::vector<Control>& controls, const Send& send,
            QWidget* parent);

  /// Shows the state of the controls. `place` is the place of the page in the tree; the measure of the edit
  /// `focused` is emphasised in the picture.
  void Show(const std::vector<Control>& controls, const QString& place, std::int32_t focused);

  /// Requires: the letters of values are reserved in `mnemonics`.
  void MarkMnemonics(Mnemonics& mnemonics);

  /// Marks the buttons that would store those controls.
  void MarkUnstored(const std::vector<std::int32_t>& unstored);

  /// Scrolls to a control.
  void Reveal(std::int32_t control);

  /// The widgets that the keyboard reaches, in order.
  std::vector<QWidget*> TabChain() const;

  /// The button that fills an edit; null for none.
  QWidget* PickButtonOf(std::int32_t edit) const;

  const char* Help() const { return layout_.help; }

  /// The widget of a control; null for one of another page.
  QWidget* WidgetOf(std::int32_t control) const;

 private:
  QWidget* MakeTitle();
  QWidget* MakeScrollArea();

  const PageLayout& layout_;
  PageForm* form_;
  QLabel* title_ = nullptr;  ///< of a page without a label for it
  QScrollArea* scroll_ = nullptr;
  PictureWidget* picture_;
};

}  // namespace vanzet::view::qt
