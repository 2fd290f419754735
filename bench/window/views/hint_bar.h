#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace vanzet::window {

/// A line across the window that says what is asked for, with a button to break it off.
class HintBar final : public QFrame {
  Q_OBJECT
 public:
  explicit HintBar(QWidget* parent = nullptr);

  void Ask(const QString& text, const QString& button);

 signals:
  void Cancelled();

 private:
  QLabel* text_;
  QPushButton* cancel_;
};

}  // namespace vanzet::window
