#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

namespace vanzet::window {

/// A line across the window that tells something worth knowing, until it is put away.
class NoticeBar final : public QFrame {
  Q_OBJECT
 public:
  explicit NoticeBar(QWidget* parent = nullptr);

  void Tell(const QString& text);
  QString Message() const;

 private:
  QLabel* text_;
};

}  // namespace vanzet::window
