#pragma once

#include <QFrame>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

/// The frames and lines about the views.
namespace vanzet::window {

/// A view with a header: its name, and controls for it.
class ViewPane final : public QFrame {
  Q_OBJECT
 public:
  ViewPane(QWidget* view, QWidget* parent);

  void SetTitle(const QString& title);

  /// Adds to the right end of the header.
  void Add(QWidget* control);
  void Add(QAction* action);

 private:
  QLabel* title_;
  QHBoxLayout* header_;
};

/// A line across the window that says what the user is asked for, with a button to cancel and, where an
/// answer can be typed, an edit for it.
class HintBar final : public QFrame {
  Q_OBJECT
 public:
  explicit HintBar(QWidget* parent = nullptr);

  /// `typed` is the name of what can be typed; empty: nothing.
  void Ask(const QString& text, const QString& button, const QString& typed);
  /// Shows that the typed text is not an answer, and why.
  void Refuse(const QString& why);
  void TakeFocus();  ///< typing goes to the edit

 signals:
  void Cancelled();
  void Typed(const QString& text);  ///< the user has finished it

 private:
  QLabel* text_;
  QLineEdit* edit_;
  QPushButton* cancel_;
};

/// A line across the window with a fault or a notice, until the user closes it.
class NoticeBar final : public QFrame {
  Q_OBJECT
 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  /// Shows the text; hides the line when it is empty.
  void SetMessage(const QString& text);

  /// The text of its button.
  void SetCloseName(const QString& name);

  /// The text that is shown; empty while the line is hidden.
  QString Message() const;

 private:
  QLabel* text_;
  QToolButton* close_;
};

}  // namespace vanzet::window
