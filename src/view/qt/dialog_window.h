#pragma once

#include <QDialog>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "view/dialog_view.h"
#include "view/qt/control_widget.h"
#include "view/shared/tree_model.h"

class QLabel;
class QSplitter;
class QStackedWidget;
class QToolButton;

namespace vanzet::view::qt {

class EmptyPanel;
class PagePanel;
class TreePanel;

/// The window of the dialog: the tree, the current page, and the dialog's own buttons. It keeps its size from
/// one start to the next.
class DialogWindow final : public QDialog {
 public:
  /// `dialog` must outlive the window.
  DialogWindow(Dialog& dialog, QWidget* parent);
  ~DialogWindow() override;

  /// Shows the window until the dialog is no longer open, or the application ends.
  void Run();

  void Show(const DialogState& state);
  void Hide();
  void ShowAgain();

  /// Gives the keyboard to a control; the text of an edit is marked.
  void FocusOn(std::int32_t control);
  std::optional<std::int32_t> Popup(std::int32_t node, const std::vector<PopupEntry>& entries);

  /// The widget of a control of the dialog or of the current page; null for an unknown one.
  QWidget* WidgetOf(std::int32_t control) const;

  TreePanel& Tree() { return *tree_; }
  Dialog& TheDialog() { return dialog_; }

  /// The current page; null for one without controls.
  PagePanel* Page() const { return page_; }

  /// Called for the window's frame and the Escape key.
  void reject() override;

 protected:
  /// F1 asks for help; F4 presses the button that fills the value with the focus; Ctrl+F and Ctrl+Shift+F
  /// open the lists with pictures.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build(const DialogState& state);
  QToolButton* ChooserFor(const QKeyEvent& event) const;
  QWidget* BuildLeft(const DialogState& state);
  QWidget* BuildButtons(const DialogState& state);
  QWidget* MakeWidget(const Control& control, QWidget* parent);

  void Perform(const std::function<void(Dialog&)>& event);
  void ShowPage(const DialogState& state);
  void ShowMnemonics();

  /// The tree, the spurs, what is beside them, the buttons.
  void OrderTabs();
  void PublishHelp();
  void PublishPage(const DialogState& state);

  /// Says which values of the page are not stored, or were not when it was left. Stops nobody.
  void ShowUnstored(const DialogState& state);
  void FocusMoved();
  std::int32_t FocusedControl() const;

  void RestoreSize();
  void RememberSize();

  Dialog& dialog_;
  const Send send_;
  std::vector<std::unique_ptr<ControlWidget>> widgets_;  ///< the dialog's own
  std::map<std::string, PagePanel*> pages_;              ///< those that were shown, by their class
  QSplitter* splitter_ = nullptr;
  TreePanel* tree_ = nullptr;
  QStackedWidget* stack_ = nullptr;
  EmptyPanel* empty_ = nullptr;
  PagePanel* page_ = nullptr;
  QLabel* spurLabel_ = nullptr;
  QLabel* line_ = nullptr;  ///< beside the buttons
  UnstoredLine unstored_;
  QPoint hiddenAt_;
  std::function<void()> leave_;  ///< ends Run
};

}  // namespace vanzet::view::qt
