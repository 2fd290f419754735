#pragma once

#include <QTimer>
#include <cstdint>
#include <deque>
#include <functional>

class QMenu;
class QMessageBox;

namespace vanzet::test {

/// Answers the boxes and menus in front of the dialog, by their buttons and entries.
class Responder {
 public:
  Responder();

  /// The answers to questions, in order; without one it is No.
  std::deque<std::int32_t> answers;

  /// The entry to choose from the next menu, by its command; 0: the menu is dismissed.
  std::int32_t entry = 0;

  /// Called for each box before it is answered.
  std::function<void(QMessageBox&)> onBox;

 private:
  void Look();
  void Answer(QMessageBox& box);
  void Choose(QMenu& menu);

  QTimer timer_;
};

}  // namespace vanzet::test
