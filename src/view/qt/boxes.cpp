#include "view/qt/boxes.h"

#include <QMessageBox>
#include <QPushButton>

#include "view/qt/owner.h"
#include "view/qt/texts.h"

namespace vanzet::view::qt {
namespace {

constexpr std::int32_t kButtonBits = 0xF;
constexpr std::int32_t kIconBits = 0xF0;

struct Icon {
  std::int32_t type;
  QMessageBox::Icon icon;
};
constexpr Icon kIcons[] = {
    {platform::box::kQuestionIcon, QMessageBox::Question},
    {platform::box::kExclamationIcon, QMessageBox::Warning},
};

QMessageBox::Icon IconOf(std::int32_t type) {
  for (const Icon& row : kIcons) {
    if ((type & kIconBits) == row.type) return row.icon;
  }
  return (type & kButtonBits) == platform::box::kYesNo ? QMessageBox::Question : QMessageBox::Information;
}

constexpr const char* kYes = Translatable("&Yes");
constexpr const char* kNo = Translatable("&No");

void AddYesAndNo(QMessageBox& box) {
  QPushButton* const yes = box.addButton(QMessageBox::Yes);
  QPushButton* const no = box.addButton(QMessageBox::No);
  yes->setText(Translate(kYes));
  no->setText(Translate(kNo));
  box.setDefaultButton(no);
  box.setEscapeButton(no);
}

}  // namespace

std::int32_t Boxes::Present(const platform::MessageBox& message) {
  QWidget* const owner = WidgetOf(message.owner);
  QMessageBox box(owner != nullptr ? owner : fallbackOwner);
  const QString caption = QString::fromStdString(message.caption);
  box.setWindowTitle(caption.isEmpty() ? QStringLiteral("vanzet") : caption);
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(message.text));
  box.setIcon(IconOf(message.type));
  box.setAttribute(Qt::WA_QuitOnClose, false);
  if ((message.type & kButtonBits) == platform::box::kYesNo) {
    AddYesAndNo(box);
    return box.exec() == QMessageBox::Yes ? platform::answer::kYes : platform::answer::kNo;
  }
  box.exec();
  return platform::answer::kOk;
}

}  // namespace vanzet::view::qt
