#include "view_qt/responder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTest>

#include "platform/message_box.h"

namespace vanzet::test {

Responder::Responder() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
  timer_.start(0);
}

void Responder::Look() {
  if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) return Choose(*menu);
  auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box != nullptr && box->isVisible()) Answer(*box);
}

void Responder::Answer(QMessageBox& box) {
  if (onBox) onBox(box);
  QAbstractButton* const yes = box.button(QMessageBox::Yes);
  if (yes == nullptr) return QTest::keyClick(&box, Qt::Key_Return);
  const std::int32_t answer = answers.empty() ? platform::answer::kNo : answers.front();
  if (!answers.empty()) answers.pop_front();
  if (answer == platform::answer::kCancel) return QTest::keyClick(&box, Qt::Key_Escape);
  QTest::mouseClick(answer == platform::answer::kYes ? yes : box.button(QMessageBox::No), Qt::LeftButton);
}

void Responder::Choose(QMenu& menu) {
  const auto actions = menu.actions();
  for (const QAction* const action : actions) {
    QTest::keyClick(&menu, Qt::Key_Down);
    if (entry == 0 || action->data().toInt() != entry) continue;
    entry = 0;
    return QTest::keyClick(&menu, Qt::Key_Return);
  }
  QTest::keyClick(&menu, Qt::Key_Escape);
}

}  // namespace vanzet::test
