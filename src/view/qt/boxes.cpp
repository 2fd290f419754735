#include "view/qt/boxes.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

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

/// A box has no size to change: without these a window manager offers to maximise and minimise it.
constexpr Qt::WindowFlags kBoxFlags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                      Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

QWidget* OwnerOf(const platform::MessageBox& message, QWidget* dialog) {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  const bool isDialogUp = dialog != nullptr && dialog->isVisible();
  QWidget* const named = isDialogUp ? nullptr : WidgetOf(message.owner);
  return named != nullptr ? named : dialog;
}

using platform::FileQuestion;

constexpr const char* kOpen = Translatable("Open File");
constexpr const char* kSave = Translatable("Save File");
constexpr const char* kAllFiles = Translatable("All Files (*)");

/// True for a suggested name that is a pattern: it filters the list.
bool IsPattern(const std::string& name) {
  return name.find('*') != std::string::npos;
}

/// "VDM Files (*.vdm)|*.vdm||" is one filter, of a name and a pattern.
QStringList NameFilters(const FileQuestion& question) {
  const QStringList parts =
      QString::fromStdString(question.filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList filters;
  if (IsPattern(question.suggested)) filters.append(QString::fromStdString(question.suggested));
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section(QStringLiteral(" ("), 0, 0);
    filters.append(name + QStringLiteral(" (") +
                   parts[i + 1].simplified().replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')'));
  }
  filters.append(Translate(kAllFiles));
  return filters;
}

void SetUp(QFileDialog& dialog, const FileQuestion& question) {
  const bool isSave = question.kind == FileQuestion::Kind::kSave;
  dialog.setWindowTitle(Translate(isSave ? kSave : kOpen));
  dialog.setAcceptMode(isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !question.promptsOverwrite);
  dialog.setNameFilters(NameFilters(question));
  dialog.setDefaultSuffix(QString::fromStdString(question.defaultExtension));
  if (!question.startFolder.empty()) dialog.setDirectory(QString::fromStdString(question.startFolder));
  if (!IsPattern(question.suggested)) dialog.selectFile(QString::fromStdString(question.suggested));
  dialog.setAttribute(Qt::WA_QuitOnClose, false);
}

}  // namespace

std::int32_t Boxes::Present(const platform::MessageBox& message) {
  QMessageBox box(OwnerOf(message, dialog));
  box.setWindowFlags(kBoxFlags);
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

std::optional<std::string> FileDialogs::Choose(const FileQuestion& question) {
  QWidget* const owner = WidgetOf(question.owner);
  QFileDialog dialog(owner != nullptr ? owner : fallbackOwner);
  SetUp(dialog, question);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

QWidget* WidgetOf(void* handle) {
  // A handle of a host of another kind must not be looked into, so it is searched for.
  for (QWidget* const widget : QApplication::allWidgets()) {
    if (static_cast<void*>(widget) == handle) return widget;
  }
  return nullptr;
}

}  // namespace vanzet::view::qt
